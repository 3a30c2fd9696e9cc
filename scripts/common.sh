# Shared by ./run and ./test: install what is missing, configure and build.
# Safe to run again: packages are only installed when absent, and the build
# directory is reused.

ORV_PACKAGES=(
    build-essential cmake ninja-build ccache pkg-config
    qt6-base-dev qt6-tools-dev qt6-tools-dev-tools qt6-l10n-tools libgl-dev
    qt6-translations-l10n
    qt6-image-formats-plugins
    libavformat-dev libavcodec-dev libswscale-dev libavutil-dev
    libfreetype-dev libfontconfig-dev fonts-dejavu-core fonts-unfonts-core
    libgtest-dev libgmock-dev googletest libbenchmark-dev clang libclang-rt-14-dev python3
    libgstreamer1.0-dev libgstreamer-plugins-base1.0-dev gstreamer1.0-plugins-base
    gstreamer1.0-plugins-good gstreamer1.0-plugins-bad gstreamer1.0-plugins-ugly
    gstreamer1.0-libav
    libpoppler-qt6-dev libreoffice-impress-nogui
    appstream desktop-file-utils shared-mime-info man-db
)

orv_as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif command -v sudo >/dev/null 2>&1; then
        sudo "$@"
    else
        echo "error: installing packages needs root or sudo: $*" >&2
        return 1
    fi
}

orv_missing_packages() {
    local pkg status
    for pkg in "${ORV_PACKAGES[@]}"; do
        status=$(dpkg-query -W -f='${Status}' "$pkg" 2>/dev/null || true)
        case "$status" in
            *"install ok installed"*) ;;
            *) printf '%s\n' "$pkg" ;;
        esac
    done
}

orv_install_packages() {
    local missing
    mapfile -t missing < <(orv_missing_packages)
    if [ "${#missing[@]}" -eq 0 ]; then
        return 0
    fi
    echo "Installing missing packages: ${missing[*]}"
    orv_as_root apt-get update
    orv_as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "${missing[@]}"
}

# orv_build BUILD_DIR [extra cmake arguments...]
orv_build() {
    local dir=$1
    shift
    local launcher=()
    if command -v ccache >/dev/null 2>&1; then
        launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache -DCMAKE_C_COMPILER_LAUNCHER=ccache)
    fi
    if [ ! -f "$dir/CMakeCache.txt" ]; then
        cmake -S . -B "$dir" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo "${launcher[@]}" "$@"
    else
        cmake -S . -B "$dir" "$@" >/dev/null
    fi
    cmake --build "$dir" --parallel "$(nproc)"
}
