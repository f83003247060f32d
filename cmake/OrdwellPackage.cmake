# The Debian package, built by scripts/package (cpack -G DEB).
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ordwell)
set(CPACK_PACKAGE_VENDOR "The Ordwell developers")
set(CPACK_PACKAGE_CONTACT "The Ordwell developers <maintainers@ordwell.org>")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "purchase orders to vendors for a small organisation")
set(CPACK_PACKAGE_DESCRIPTION
"Ordwell keeps, for each of an organisation's suppliers, an item catalogue and
barcode rules, and builds purchase orders line by line as item codes are typed
or scanned. Orders are printed on the vendor's own order form, exported as CSV
files to the desktop, and received until everything has arrived.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT) # ordwell_<version>_<arch>.deb
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "The Ordwell developers <maintainers@ordwell.org>")
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE ${ORDWELL_HOMEPAGE})
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Qt loads these plugins at run time, so no linked library names them: the SQLite driver
# and the window-system plugins.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6sql6-sqlite, qt6-qpa-plugins")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

include(CPack)
