#!/usr/bin/env bash
# Installs the build into a temporary DESTDIR under a non-default prefix, compares the installed
# files with the expected list, and runs the installed program's --version and --help.
# Usage: check_install.sh SOURCE_DIR BUILD_DIR VERSION
set -euo pipefail
src=$1 build=$2 version=$3
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
prefix=/opt/ordwell-test
status=0
fail() { echo "FAIL: $*"; status=1; }

DESTDIR="$work/root" cmake --install "$build" --prefix "$prefix" >"$work/install.log" \
    || { cat "$work/install.log"; exit 1; }
root="$work/root$prefix"
[ -d "$root" ] || { echo "nothing installed under $prefix"; exit 1; }

# Everything installed must be expected and everything expected installed, nothing elsewhere.
(cd "$work/root" && find . -type f -o -type l | sed 's|^\./||' | sort) >"$work/actual"
sed "s|^|${prefix#/}/|" "$here/installed-files.txt" | sort >"$work/expected"
diff -u "$work/expected" "$work/actual" || fail "installed files differ from installed-files.txt"

[ -x "$root/bin/ordwell" ] || fail "bin/ordwell is not executable"
for f in $(grep -v '^bin/' "$here/installed-files.txt"); do
    [ "$(stat -c %a "$root/$f")" = 644 ] || fail "$f is not mode 644"
done

# The installed program answers without a display.
unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM
got=$("$root/bin/ordwell" --version) || fail "--version exited $?"
[ "$got" = "Ordwell $version" ] || fail "--version printed '$got', expected 'Ordwell $version'"
help=$("$root/bin/ordwell" --help) || fail "--help exited $?"
[ "$(head -n1 <<<"$help")" = "Usage: ordwell [options]" ] || fail "--help usage line: $(head -n1 <<<"$help")"

# Without --data-dir the headless run looks in the documented default data folder.
home="$work/home"
mkdir -p "$home"
echo "A1,Item,1,1,1.00,31/12/2099" >"$work/prices.csv"
rc=0
err=$(env -u ORDWELL_DATA_DIR -u XDG_DATA_HOME HOME="$home" "$root/bin/ordwell" --vendor ABC \
    --import-items "$work/prices.csv" 2>&1 >/dev/null) || rc=$?
[ $rc -eq 2 ] || fail "headless run on an empty home exited $rc"
grep -qF "$home/.local/share/Ordwell/Ordwell" <<<"$err" || fail "headless run did not use the default data folder: $err"

# The metadata names the same release.
grep -q "<release version=\"$version\"" "$root/share/metainfo/org.ordwell.Ordwell.metainfo.xml" \
    || fail "metadata release is not $version"

# The manual page lists exactly the options --help lists.
grep -oE -- '--[a-z][a-z-]*' <<<"$help" | sort -u >"$work/help-options"
zcat "$root/share/man/man1/ordwell.1.gz" | sed -n '/^\.SH OPTIONS/,/^\.SH /p' | sed 's/\\-/-/g' \
    | grep -oE -- '--[a-z][a-z-]*' | sort -u >"$work/man-options"
[ -s "$work/help-options" ] || fail "--help lists no options"
diff -u "$work/help-options" "$work/man-options" || fail "manual page options differ from --help"
exit $status
