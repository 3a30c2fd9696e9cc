#!/usr/bin/env bash
# Builds the control server's two fuzzers (the line parser; the HTTP
# requests with their JSON bodies) with clang and runs each for a bounded time
# (ORV_FUZZ_SECONDS, 15 by default) from a few seed lines and objects.
set -euo pipefail
cd "$(dirname "$0")/.."
out=build-fuzz
mkdir -p "$out/corpus-line" "$out/corpus-api"
flags=(-std=c++20 -g -O1 -fsanitize=fuzzer,address,undefined -fno-sanitize-recover=undefined
    -fPIC -I src)
# One source a compile, so that a second run takes them all from the cache
# and ./test stays well under a minute here.
cxx=(clang++)
if command -v ccache >/dev/null 2>&1; then cxx=(ccache clang++); fi
# shellcheck disable=SC2207
qt=($(pkg-config --cflags Qt6Core Qt6Gui))
compile() {
    local source=$1
    local object="$out/obj/$(basename "${source%.cpp}").o"
    mkdir -p "$out/obj"
    "${cxx[@]}" "${flags[@]}" "${qt[@]}" -c "$source" -o "$object"
    echo "$object"
}
# shellcheck disable=SC2046
clang++ "${flags[@]}" $(compile fuzz/line_fuzz.cpp) $(compile src/remote/line_protocol.cpp) \
    -o "$out/line_fuzz"
# shellcheck disable=SC2046
clang++ "${flags[@]}" $(compile fuzz/api_fuzz.cpp) $(compile src/remote/http_request.cpp) \
    $(compile src/remote/api_request.cpp) $(compile src/remote/field_json.cpp) \
    $(pkg-config --libs Qt6Core) -o "$out/api_fuzz"
printf '%s\n' 'CG 1 ADD 1 "News/2" 1 "{\"name\":\"Kim\"}"' > "$out/corpus-line/add"
printf '%s\n' 'REQ 7 CG 1-10 UPDATE 1 "{\"a\":\"x\\ny\"}"' 'CLEAR 1' 'INFO' > "$out/corpus-line/many"
body='{"page":1,"data":{"name":"Kim","n":3,"ok":true,"z":null}}'
printf 'POST /api/take HTTP/1.1\r\nContent-Length: %d\r\n\r\n%s' "${#body}" "$body" \
    > "$out/corpus-api/take"
printf 'PUT /api/pages/2/data HTTP/1.1\r\nContent-Length: 9\r\n\r\n{"a":"b"}GET /api/status HTTP/1.1\r\n\r\n' \
    > "$out/corpus-api/pipelined"
printf 'POST /api/timers/set HTTP/1.1\r\nContent-Length: 14\r\n\r\n{"seconds":90}' \
    > "$out/corpus-api/timers"
for pair in line:corpus-line api:corpus-api; do
    target="${pair%%:*}"
    echo "fuzzing the ${target/_/ } reader"
    "$out/${target}_fuzz" -max_total_time="${ORV_FUZZ_SECONDS:-15}" -max_len=8192 \
        -print_final_stats=1 "$out/${pair##*:}" 2>&1 | tail -n 5
done
