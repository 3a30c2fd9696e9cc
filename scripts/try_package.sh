#!/usr/bin/env bash
# Run by hand, as root: installs the package into a fresh Debian 12 made with
# debootstrap, as a station's engineer would, and checks it there:
#   scripts/try_package.sh [PACKAGE.deb] [ROOT]
# (defaults: the newest dist/orvantis-hd_*.deb, /var/tmp/orvantis-bookworm).
# It installs an older build first and the package over it, starts
# orvantis-cli and the editor offscreen from the installed paths (no video
# card, no LibreOffice: recommendations are left out), then removes the
# package while a user's settings and project exist, and checks that they stay.
# The root is kept for another run; delete it by hand.
set -euo pipefail
cd "$(dirname "$0")/.."
deb=$(realpath "${1:-$(ls -t dist/orvantis-hd_*.deb | head -n 1)}")
root=${2:-/var/tmp/orvantis-bookworm}
mirror=${ORV_DEBIAN_MIRROR:-http://deb.debian.org/debian}

fail() {
    echo "FAIL: $*" >&2
    exit 1
}
step() { echo "== $*"; }
in_root() { chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LANG=C.UTF-8 "$@"; }

if [ ! -f "$root/etc/debian_version" ]; then
    step "debootstrap bookworm into $root"
    command -v debootstrap >/dev/null || apt-get install -y --no-install-recommends debootstrap
    debootstrap --variant=minbase bookworm "$root" "$mirror"
fi
mountpoint -q "$root/proc" || mount -t proc proc "$root/proc"
trap 'umount "$root/proc" 2>/dev/null || true' EXIT

# The older build: the same files under a lower version, as a previous
# release would be.
work=$(mktemp -d)
dpkg-deb -R "$deb" "$work/old"
version=$(dpkg-deb -f "$deb" Version)
sed -i "s/^Version: .*/Version: ${version%-*}~prev-1/" "$work/old/DEBIAN/control"
dpkg-deb -b --root-owner-group "$work/old" "$root/tmp/orvantis-hd_old.deb" >/dev/null
cp "$deb" "$root/tmp/orvantis-hd_new.deb"
rm -rf "$work"

step "install the older build, then the package over it"
in_root dpkg --purge orvantis-hd >/dev/null 2>&1 || true
in_root apt-get update -qq
in_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
    /tmp/orvantis-hd_old.deb >/dev/null
in_root env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends \
    /tmp/orvantis-hd_new.deb
[ "$(in_root dpkg-query -W -f '${Version}' orvantis-hd)" = "$version" ] || fail "not upgraded"

step "orvantis-cli --version"
said=$(in_root orvantis-cli --version)
echo "$said"
[ "$said" = "orvantis-cli ${version%-*}" ] || fail "the installed orvantis-cli does not say ${version%-*}"

step "a user's project and settings"
in_root useradd -m ann 2>/dev/null || true
in_root su ann -c 'orvantis-cli demo /tmp/demo.png' || fail "demo failed"
in_root su ann -c 'printf "Good evening\n//\n안녕하세요\n" >/tmp/lines.txt'

step "the editor, offscreen, in Korean, with no card and no LibreOffice"
status=0
in_root su ann -c 'cd && LANG=ko_KR.UTF-8 QT_QPA_PLATFORM=offscreen timeout 6 orvantis' \
    >/tmp/orvantis-editor.log 2>&1 || status=$?
cat /tmp/orvantis-editor.log
[ "$status" -eq 124 ] || fail "the editor ended by itself with status $status"
grep -q "no translations" /tmp/orvantis-editor.log && fail "the editor found no translations"
settings=/home/ann/.local/share/Tavrix/Orvantis-HD
[ -d "$root$settings" ] || fail "the editor made no settings folder"
project=$(find "$root/home/ann/Documents" -name project.qrdprj | head -n 1)
[ -n "$project" ] || fail "the editor made no project"
project=${project#"$root"}
in_root su ann -c "orvantis-cli import-text '$project' /tmp/lines.txt" || fail "import-text failed"
printf 'PK\003\004' >"$root/tmp/slides.pptx"
status=0
in_root su ann -c "orvantis-cli import-slides '$project' /tmp/slides.pptx" \
    >/tmp/orvantis-slides.log 2>&1 || status=$?
cat /tmp/orvantis-slides.log
[ "$status" -eq 1 ] && grep -q "LibreOffice is not installed" /tmp/orvantis-slides.log ||
    fail "a missing LibreOffice went unsaid"
in_root su ann -c 'printf "kept\n" >~/.local/share/Tavrix/Orvantis-HD/qrdenv.ini.mark'

step "remove and purge the package: the user's files stay"
in_root apt-get remove -y -qq orvantis-hd >/dev/null
[ ! -e "$root/usr/bin/orvantis" ] || fail "/usr/bin/orvantis is still there"
# Nothing of the package is left to purge (it has no configuration files);
# dpkg is asked all the same, as an engineer tidying up would.
in_root dpkg --purge orvantis-hd >/dev/null
[ -z "$(in_root dpkg-query -W -f '${Status}' orvantis-hd 2>/dev/null)" ] || fail "dpkg still lists it"
[ -f "$root$project" ] && [ -f "$root$settings/qrdenv.ini.mark" ] ||
    fail "removing the package took a user's files"
[ -z "$(find "$root/usr/share/orvantis-hd" 2>/dev/null)" ] || fail "data left behind"
echo "try_package: all checks passed in $root"
