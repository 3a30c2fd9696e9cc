#!/usr/bin/env bash
# Builds the project reader's fuzzer with clang, every library instrumented,
# and runs it for a bounded time (ORV_FUZZ_SECONDS, 30 by default) from the
# sample projects that the tests make. Needs the ordinary build in build/.
set -euo pipefail
cd "$(dirname "$0")/.."
out=build-fuzz/project
launcher=()
if command -v ccache >/dev/null 2>&1; then
    launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache -DCMAKE_C_COMPILER_LAUNCHER=ccache)
fi
if [ ! -f "$out/CMakeCache.txt" ]; then
    cmake -S . -B "$out" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DORV_FUZZ=ON -DORV_BENCH=OFF -DORV_UNITY=ON \
        -DCMAKE_CXX_FLAGS_RELWITHDEBINFO="-O1 -g1 -DNDEBUG" \
        -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ "${launcher[@]}" >/dev/null
fi
cmake --build "$out" --parallel "$(nproc)" --target project_fuzz >/dev/null

corpus=build-fuzz/project-corpus
seeds=build-fuzz/project-seeds
rm -rf "$seeds"
mkdir -p "$corpus" "$seeds"
build/tests/project/make_sample_projects "$seeds" >/dev/null
for f in "$seeds"/*/project.qrdprj; do
    cp "$f" "$corpus/seed-$(basename "$(dirname "$f")").qrdprj"
done
QT_QPA_PLATFORM=offscreen ASAN_OPTIONS=detect_leaks=0 \
    "$out/fuzz/project_fuzz" -max_total_time="${ORV_FUZZ_SECONDS:-30}" -max_len=262144 \
    -rss_limit_mb=2048 -print_final_stats=1 "$corpus" 2>&1 | tail -n 5
