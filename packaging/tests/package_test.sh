#!/usr/bin/env bash
# Makes the Debian package from this build in a scratch folder and reads it
# back as dpkg would: the control fields, and a file list that holds the
# programs, their data and the desktop's files, all under /usr, and nothing
# that runs at install or removal (so nothing can reach a home folder).
set -euo pipefail
build=$1
version=$2
work=$3
source "$(dirname "$0")/checks.sh"
need cpack dpkg-deb dpkg-shlibdeps readelf
rm -rf "$work"
mkdir -p "$work"

cpack -G DEB --config "$build/CPackConfig.cmake" -B "$work" >"$work/cpack.log" 2>&1 ||
    fail "cpack failed: $(tail -n 20 "$work/cpack.log")"
deb="$work/orvantis-hd_${version}-1_amd64.deb"
[ -f "$deb" ] || fail "no $deb: $(ls "$work")"

field() { dpkg-deb -f "$deb" "$1"; }
[ "$(field Package)" = orvantis-hd ] || fail "Package: $(field Package)"
[ "$(field Version)" = "${version}-1" ] || fail "Version: $(field Version)"
[ "$(field Architecture)" = amd64 ] || fail "Architecture: $(field Architecture)"
[ "$(field Section)" = video ] || fail "Section: $(field Section)"
depends=$(field Depends)
# From the libraries the programs link (computed), and the ones found at run time.
for pkg in libqt6widgets6 libqt6gui6 libgstreamer1.0-0 libavcodec59 libfreetype6 \
    libpoppler-qt6-3 libc6 fonts-dejavu-core fonts-unfonts-core gstreamer1.0-plugins-bad \
    gstreamer1.0-plugins-good gstreamer1.0-libav; do
    [[ ", $depends," == *", $pkg"[\ ,]* ]] || fail "Depends lacks $pkg: $depends"
done
[[ "$(field Recommends)" == *libreoffice-impress* ]] || fail "Recommends: $(field Recommends)"
[ -z "$(field Pre-Depends)" ] || fail "Pre-Depends: $(field Pre-Depends)"

dpkg-deb -c "$deb" | awk '{print $6}' | sed 's|^\./||' | grep -v '/$' | sort >"$work/found"
expected_files | sed 's|^|usr/|' | sort >"$work/expected"
diff -u "$work/expected" "$work/found" || fail "the package's files differ from the list"
dpkg-deb -c "$deb" | awk '$2 != "root/root" {print; bad=1} END {exit bad}' ||
    fail "files not owned by root"

dpkg-deb -e "$deb" "$work/control"
ls "$work/control" | grep -vx -e control -e md5sums -e shlibs -e triggers | grep . &&
    fail "the package runs scripts: $(ls "$work/control")"
# The binaries are stripped: a package of debug sections would be ten times the size.
dpkg-deb -x "$deb" "$work/root"
for program in orvantis orvantis-cli; do
    readelf -S "$work/root/usr/bin/$program" | grep -q -e '\.debug_info' -e '\.symtab' &&
        fail "$program is not stripped"
done
echo "debian package: all checks passed ($(du -h "$deb" | cut -f1))"
