#!/usr/bin/env bash
# The desktop entry, the AppStream metadata and the manual page pass the checks distributions
# run on them; any message counts as a failure, so a new warning is seen when it appears.
# Usage: check_metadata.sh SOURCE_DIR BUILD_DIR
set -euo pipefail
src=$1 build=$2
id=org.ordwell.Ordwell
status=0

out=$(desktop-file-validate "$src/assets/desktop/$id.desktop" 2>&1) || status=1
[ -z "$out" ] || { echo "desktop-file-validate: $out"; status=1; }

appstreamcli validate --no-net --no-color "$build/$id.metainfo.xml" || status=1

# groff's warnings (all of them) go to stderr; a page that renders cleanly prints none.
warnings=$(LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings=w -E UTF-8 -l "$build/man/ordwell.1" 2>&1 >/dev/null)
[ -z "$warnings" ] || { echo "man page warnings:"; echo "$warnings"; status=1; }

# One application id ties the entry, the metadata and the icon together.
grep -qx "Icon=$id" "$src/assets/desktop/$id.desktop" || { echo "desktop entry icon is not $id"; status=1; }
grep -q "<launchable type=\"desktop-id\">$id.desktop</launchable>" "$build/$id.metainfo.xml" \
    || { echo "metadata does not launch $id.desktop"; status=1; }
exit $status
