#!/usr/bin/env bash
# Makes the Debian package (orvantis-hd_VERSION-1_ARCH.deb) from this checkout
# in a build folder of its own, and checks it with lintian. The build type is
# the everyday one, so that the compiler cache serves it; cpack strips the
# programs.
#   scripts/package.sh [OUTDIR]     (default: dist/)
# ORV_PACKAGE_BUILD names the build folder (default: build-package).
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/common.sh
ORV_PACKAGES+=(lintian)
orv_install_packages

build=${ORV_PACKAGE_BUILD:-build-package}
out=$(realpath -m "${1:-dist}")
launcher=()
if command -v ccache >/dev/null 2>&1; then
    launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache -DCMAKE_C_COMPILER_LAUNCHER=ccache)
fi
# Only what the package holds is built: not the tests, not the benchmarks.
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DORV_BENCH=OFF \
    -DCMAKE_SKIP_INSTALL_ALL_DEPENDENCY=ON "${launcher[@]}"
cmake --build "$build" --parallel "$(nproc)" --target orvantis orvantis-cli orv_gzipped_docs
mkdir -p "$out"
cpack -G DEB --config "$build/CPackConfig.cmake" -B "$out"
rm -rf "$out/_CPack_Packages"
deb=$(ls -t "$out"/orvantis-hd_*.deb | head -n 1)
lintian --fail-on error "$deb"
echo "Package: $deb"
