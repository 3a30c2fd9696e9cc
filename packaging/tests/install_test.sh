#!/usr/bin/env bash
# cmake --install into a staging root (DESTDIR, as a package is made) and
# into a prefix elsewhere: exactly the expected files, and the installed
# programs find their version and translations from where they stand.
set -euo pipefail
build=$1
version=$2
work=$3
make_samples=$4
converter_package=$5
source "$(dirname "$0")/checks.sh"
rm -rf "$work"
mkdir -p "$work"

DESTDIR="$work/root" cmake --install "$build" --prefix /usr >"$work/install.log"
(cd "$work/root/usr" && find . -type f -o -type l | sed 's|^\./||' | sort) >"$work/found"
expected_files | sort >"$work/expected"
diff -u "$work/expected" "$work/found" || fail "the installed files differ from the list"
find "$work/root" -mindepth 1 -maxdepth 1 ! -name usr | grep . && fail "files outside /usr"

# A prefix the build never heard of: nothing may point back into the build.
prefix="$work/opt/station"
cmake --install "$build" --prefix "$prefix" >"$work/install2.log"
[ "$("$prefix/bin/orvantis-cli" --version)" = "orvantis-cli $version" ] ||
    fail "the installed orvantis-cli says $("$prefix/bin/orvantis-cli" --version)"
editor_starts "$prefix/bin/orvantis" "$work/home" "$work/editor.log"
[ -d "$work/home/.local/share/Tavrix/Orvantis-HD" ] || fail "the editor made no settings folder"

# The build folder's editor finds the same data in the build folder.
editor_starts "$build/app/orvantis" "$work/home2" "$work/editor2.log"
# Taken away, the translations are missed and the editor says where it
# looked: in the prefix, not in the build folder it was made in.
mv "$prefix/share/orvantis-hd" "$work/moved"
status=0
ORVANTIS_HOME="$work/home3" LANG=ko_KR.UTF-8 QT_QPA_PLATFORM=offscreen \
    timeout 3 "$prefix/bin/orvantis" >"$work/editor3.log" 2>&1 || status=$?
grep -q "no translations in $prefix/share/orvantis-hd/translations" "$work/editor3.log" ||
    fail "a missing translation went unsaid: $(cat "$work/editor3.log")"
mv "$work/moved" "$prefix/share/orvantis-hd"

# With no GStreamer plug-ins at all (so no card driver either) the editor
# still comes up as an editor.
GST_PLUGIN_SYSTEM_PATH_1_0="$work/none" GST_PLUGIN_PATH_1_0="" \
    GST_REGISTRY_1_0="$work/registry.bin" editor_starts "$prefix/bin/orvantis" "$work/home4" \
    "$work/editor4.log"

# Without LibreOffice (no soffice on the PATH) slide import names the package
# that the Debian package recommends, and leaves the project as it was.
"$make_samples" "$work/samples" >/dev/null
project="$work/samples/pages/project.qrdprj"
cp "$project" "$work/kept.qrdprj"
printf 'PK\003\004' >"$work/slides.pptx"
status=0
PATH=/nonexistent "$prefix/bin/orvantis-cli" import-slides "$project" "$work/slides.pptx" \
    >/dev/null 2>"$work/slides.err" || status=$?
[ "$status" -eq 1 ] || fail "import-slides without LibreOffice exited $status"
grep -q "LibreOffice is not installed; install the package $converter_package" "$work/slides.err" ||
    fail "the message does not name $converter_package: $(cat "$work/slides.err")"
cmp -s "$project" "$work/kept.qrdprj" || fail "a failed slide import changed the project"
echo "installed layout: all checks passed"
