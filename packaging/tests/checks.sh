# Sourced by the packaging tests.

fail() {
    echo "FAIL: $*" >&2
    exit 1
}

# need TOOL...: skip the test (status 77) when a tool is not installed.
need() {
    local tool
    for tool in "$@"; do
        command -v "$tool" >/dev/null 2>&1 || {
            echo "SKIPPED: $tool is not installed"
            exit 77
        }
    done
}

# The files a prefix holds after installing, one relative path a line.
expected_files() {
    local id=com.tavrix.OrvantisHD size
    printf '%s\n' bin/orvantis bin/orvantis-cli \
        share/orvantis-hd/translations/orvantis_en.qm \
        share/orvantis-hd/translations/orvantis_ko.qm \
        "share/applications/$id.desktop" "share/metainfo/$id.metainfo.xml" \
        "share/mime/packages/$id.xml" "share/icons/hicolor/scalable/apps/$id.svg" \
        share/man/man1/orvantis.1.gz share/man/man1/orvantis-cli.1.gz \
        share/doc/orvantis-hd/changelog.Debian.gz share/doc/orvantis-hd/copyright
    for size in 16 22 24 32 48 64 128 256; do
        echo "share/icons/hicolor/${size}x${size}/apps/$id.png"
    done
}

# editor_starts PROGRAM HOME LOG: the editor, in Korean, is still up after
# three seconds (so it did not fail at start) and found its translations.
editor_starts() {
    local status=0
    ORVANTIS_HOME=$2 LANG=ko_KR.UTF-8 LC_ALL= QT_QPA_PLATFORM=offscreen \
        timeout 3 "$1" >"$3" 2>&1 || status=$?
    [ "$status" -eq 124 ] || fail "$1 ended by itself with status $status: $(cat "$3")"
    ! grep -q "no translations" "$3" || fail "$1: $(cat "$3")"
}
