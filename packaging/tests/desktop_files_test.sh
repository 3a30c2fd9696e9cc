#!/usr/bin/env bash
# The desktop entry, the AppStream file and the project file type as the
# desktop's own tools read them, and the three agreeing on names.
set -euo pipefail
src=$1
build=$2
work=$3
source "$(dirname "$0")/checks.sh"
need desktop-file-validate appstreamcli update-mime-database
rm -rf "$work"
mkdir -p "$work/mime/packages"
id=com.tavrix.OrvantisHD
desktop="$src/packaging/$id.desktop"
metainfo="$build/package-doc/$id.metainfo.xml"

desktop-file-validate "$desktop" || fail "desktop-file-validate refused $desktop"
appstreamcli validate --no-net --pedantic --explain "$metainfo" || fail "appstreamcli refused $metainfo"
grep -q '^Name\[ko\]=' "$desktop" && grep -q '^Comment\[ko\]=' "$desktop" ||
    fail "the desktop entry has no Korean name or comment"
grep -q "<release version=\"$(sed -n 's/.*VERSION_TEXT\[\] = "\(.*\)";/\1/p' \
    "$build/generated/orv_version.h")\"" "$metainfo" || fail "the release is not the version"

# A file manager maps project.qrdprj to the type through the database built
# from the package's XML, and the type to the editor through the entry.
cp "$src/packaging/$id.mime.xml" "$work/mime/packages/$id.xml"
update-mime-database "$work/mime" >/dev/null 2>&1
type=$(sed -n 's/.*:\*\.qrdprj$//p; s/^[0-9]*:\([^:]*\):project\.qrdprj$/\1/p' "$work/mime/globs2")
[ "$type" = "application/x-orvantis-project" ] || fail "project.qrdprj maps to '$type'"
grep -qx "MimeType=$type;" "$desktop" || fail "the desktop entry does not open $type"
grep -qx "Exec=orvantis %f" "$desktop" || fail "the entry does not hand the file to the editor"
grep -q "<mediatype>$type</mediatype>" "$metainfo" || fail "the metainfo does not name $type"
grep -qx "Icon=$id" "$desktop" && [ -f "$src/packaging/icons/$id.svg" ] ||
    fail "the entry's icon is not the project's"
echo "desktop files: all checks passed"
