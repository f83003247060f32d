#!/usr/bin/env bash
# Builds the Debian package from the build tree and checks it: name, control fields,
# dependencies computed from the linked libraries, the same files as an install, and lintian.
# Usage: check_deb.sh BUILD_DIR VERSION
set -euo pipefail
build=$1 version=$2
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
status=0
fail() { echo "FAIL: $*"; status=1; }

cpack -G DEB -B "$work" --config "$build/CPackConfig.cmake" >"$work/cpack.log" 2>&1 \
    || { cat "$work/cpack.log"; exit 1; }
arch=$(dpkg --print-architecture)
deb="$work/ordwell_${version}_${arch}.deb"
[ -f "$deb" ] || { ls "$work"; echo "no $deb"; exit 1; }

for field in Maintainer Section Description; do
    [ -n "$(dpkg-deb -f "$deb" "$field")" ] || fail "control field $field is empty"
done
# Every library the program is linked against comes from a package it depends on (those are
# computed by dpkg-shlibdeps); the plugins Qt loads at run time are the only hand-listed ones.
depends=$(dpkg-deb -f "$deb" Depends)
depends_on() { tr ',' '\n' <<<"$depends" | awk '{print $1}' | grep -qxF "$1"; }
dpkg-deb -x "$deb" "$work/root"
bin="$work/root/usr/bin/ordwell"
needed=$(objdump -p "$bin" | awk '$1 == "NEEDED" {print $2}')
[ -n "$needed" ] || fail "no NEEDED libraries found in $bin"
for lib in $needed; do
    path=$(ldd "$bin" | awk -v l="$lib" '$1 == l {print $3}')
    [ -n "$path" ] || { fail "$lib is not found"; continue; }
    real=$(readlink -f "$path")
    owner=$(dpkg -S "$real" 2>/dev/null || dpkg -S "/usr${real#/usr}" 2>/dev/null || dpkg -S "${real#/usr}" 2>/dev/null) \
        || { fail "no package owns $real"; continue; }
    pkg=${owner%%:*}
    depends_on "$pkg" || fail "Depends lacks $pkg (for $lib): $depends"
done
for pkg in libqt6sql6-sqlite qt6-qpa-plugins; do
    depends_on "$pkg" || fail "Depends lacks $pkg: $depends"
done

# The package holds exactly what an install holds, owned by root.
dpkg-deb -c "$deb" | awk '$1 !~ /^d/ {print $6}' | sed 's|^\./usr/||' | sort >"$work/actual"
sort "$here/installed-files.txt" >"$work/expected"
diff -u "$work/expected" "$work/actual" || fail "package files differ from installed-files.txt"
dpkg-deb -c "$deb" | awk '$2 != "root/root" {print}' | grep . && fail "files not owned by root"

# Errors fail; every warning must be one we have chosen to keep (lintian-kept.txt says why).
lintian --tag-display-limit 0 --display-info "$deb" >"$work/lintian.txt" 2>&1 || true
cat "$work/lintian.txt"
grep -q '^E: ' "$work/lintian.txt" && fail "lintian reports errors"
while read -r tag; do
    grep -qx "$tag" <(sed 's/ *#.*//' "$here/lintian-kept.txt" | grep .) || fail "lintian warning not kept on purpose: $tag"
done < <(grep '^W: ' "$work/lintian.txt" | awk '{print $3}' | sort -u)
exit $status
