#!/usr/bin/env bash
# Builds the fuzzers of the two animation readers with clang and runs each
# for a bounded time (ORV_FUZZ_SECONDS, 30 by default) from seed corpora
# that the media tests write: the hand-built files they check.
set -euo pipefail
cd "$(dirname "$0")/.."
out=build-fuzz
mkdir -p "$out"
readers="src/media/media_file.cpp src/media/media_player.cpp src/media/ani_file_player.cpp
         src/media/ani32_codec.cpp src/media/ani32_player.cpp src/media/qrdani_codec.cpp
         src/media/qrdani_player.cpp"
for target in ani32 qrdani; do
    # shellcheck disable=SC2086
    clang++ -std=c++20 -g -O1 -fsanitize=fuzzer,address,undefined -fno-sanitize-recover=undefined \
        -I src "fuzz/${target}_fuzz.cpp" $readers -o "$out/${target}_fuzz"
done
rm -rf "$out/media-seeds"
ORV_MEDIA_SEEDS="$PWD/$out/media-seeds" QT_QPA_PLATFORM=offscreen \
    build/tests/media/test_media --gtest_filter='MediaSeeds.*' >/dev/null 2>&1
for target in ani32 qrdani; do
    echo "fuzzing the ${target} reader"
    mkdir -p "$out/corpus-$target"
    "$out/${target}_fuzz" -max_total_time="${ORV_FUZZ_SECONDS:-30}" -max_len=4096 \
        -print_final_stats=1 "$out/corpus-$target" "$out/media-seeds/$target" 2>&1 | tail -n 5
done
