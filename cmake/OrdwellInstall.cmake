# Install rules: the program, its desktop entry, icons, AppStream metadata and manual page,
# laid out by GNUInstallDirs so any prefix and DESTDIR work.
include(GNUInstallDirs)

set(ORDWELL_APP_ID org.ordwell.Ordwell)
set(ORDWELL_HOMEPAGE "https://ordwell.org/")
# The date of the release named by the project version; shown in the metadata and the manual.
set(ORDWELL_RELEASE_DATE 2026-11-23)
set(ORDWELL_DOCDIR ${CMAKE_INSTALL_DATAROOTDIR}/doc/ordwell)

install(TARGETS ordwell
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
    BUNDLE DESTINATION .)

install(FILES ${PROJECT_SOURCE_DIR}/assets/desktop/${ORDWELL_APP_ID}.desktop
    DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)

set(ORDWELL_ICON_SIZES 16 22 24 32 48 64 128 256)
foreach(size IN LISTS ORDWELL_ICON_SIZES)
    install(FILES ${PROJECT_SOURCE_DIR}/assets/icons/hicolor/${size}x${size}/apps/${ORDWELL_APP_ID}.png
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
endforeach()
install(FILES ${PROJECT_SOURCE_DIR}/assets/icons/hicolor/scalable/apps/${ORDWELL_APP_ID}.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)

configure_file(${PROJECT_SOURCE_DIR}/assets/desktop/${ORDWELL_APP_ID}.metainfo.xml.in
    ${PROJECT_BINARY_DIR}/${ORDWELL_APP_ID}.metainfo.xml @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/${ORDWELL_APP_ID}.metainfo.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

# The manual page: the template's prose plus the option entries written from the program's
# own option table by a build-time tool, so it cannot drift from --help.
configure_file(${PROJECT_SOURCE_DIR}/docs/man/ordwell.1.in ${PROJECT_BINARY_DIR}/man/ordwell.1.in @ONLY)
add_custom_command(
    OUTPUT ${PROJECT_BINARY_DIR}/man/ordwell.1 ${PROJECT_BINARY_DIR}/man/ordwell.1.gz
    COMMAND ordwell-manpage ${PROJECT_BINARY_DIR}/man/ordwell.1.in ${PROJECT_BINARY_DIR}/man/ordwell.1
    COMMAND gzip -9nkf ${PROJECT_BINARY_DIR}/man/ordwell.1
    DEPENDS ordwell-manpage ${PROJECT_BINARY_DIR}/man/ordwell.1.in
    COMMENT "Writing the manual page"
    VERBATIM)
add_custom_target(ordwell_manpage ALL DEPENDS ${PROJECT_BINARY_DIR}/man/ordwell.1.gz)
install(FILES ${PROJECT_BINARY_DIR}/man/ordwell.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

# Licence terms and release history, where Debian's tools and users look for them.
install(FILES ${PROJECT_SOURCE_DIR}/docs/copyright DESTINATION ${ORDWELL_DOCDIR})
add_custom_command(
    OUTPUT ${PROJECT_BINARY_DIR}/doc/changelog.gz
    COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/doc
    COMMAND ${CMAKE_COMMAND} -E copy ${PROJECT_SOURCE_DIR}/docs/changelog ${PROJECT_BINARY_DIR}/doc/changelog
    COMMAND gzip -9nf ${PROJECT_BINARY_DIR}/doc/changelog
    DEPENDS ${PROJECT_SOURCE_DIR}/docs/changelog
    VERBATIM)
add_custom_target(ordwell_changelog ALL DEPENDS ${PROJECT_BINARY_DIR}/doc/changelog.gz)
install(FILES ${PROJECT_BINARY_DIR}/doc/changelog.gz DESTINATION ${ORDWELL_DOCDIR})
