#!/usr/bin/env bash
# Builds the TGA reader's fuzzer with clang and runs it for a bounded time
# (ORV_FUZZ_SECONDS, 30 by default) from a small corpus of valid files.
set -euo pipefail
cd "$(dirname "$0")/.."
out=build-fuzz
mkdir -p "$out/corpus"
clang++ -std=c++20 -g -O1 -fsanitize=fuzzer,address,undefined -fno-sanitize-recover=undefined \
    -I src fuzz/tga_fuzz.cpp src/render/tga_file.cpp -o "$out/tga_fuzz"
python3 - "$out/corpus" <<'PY'
import struct, sys, os
d = sys.argv[1]
def tga(kind, bits, w, h, desc, body, cmap=0, cmlen=0, idlen=0):
    head = struct.pack('<BBBHHBHHHHBB', idlen, cmap, kind, 0, cmlen, 24 if cmap else 0,
                       0, 0, w, h, bits, desc)
    return head + b'i' * idlen + b'm' * (cmap * cmlen) + body
seeds = {
    'raw32': tga(2, 32, 2, 2, 32, bytes(range(16))),
    'raw24': tga(2, 24, 3, 1, 0, bytes(range(9))),
    'raw16': tga(2, 16, 2, 1, 16, b'\xff\xff\x00\x7c'),
    'rle24': tga(10, 24, 3, 2, 32, b'\x84\x00\x00\xff\x00\xff\x00\x00'),
    'rle32': tga(10, 32, 2, 2, 48, b'\x01\x01\x02\x03\x04\x05\x06\x07\x08\x81\x09\x0a\x0b\x0c'),
    'cmap': tga(2, 24, 1, 1, 32, b'\x01\x02\x03', cmap=1, cmlen=3, idlen=2),
}
for name, data in seeds.items():
    open(os.path.join(d, name + '.tga'), 'wb').write(data)
PY
"$out/tga_fuzz" -max_total_time="${ORV_FUZZ_SECONDS:-30}" -max_len=4096 -print_final_stats=1 \
    "$out/corpus" 2>&1 | tail -n 5
