#!/usr/bin/env bash
# orvantis-cli play as a station runs it: the three-page sample played by
# the automatic list into the lossless file output, whose frames must show
# the pages in their order, each for about its second on air, and an empty
# output at the end (the 640 x 480 pages play in the corner of the PAL
# frame); then the requests that must fail or be corrected.
set -euo pipefail
cli=$1
make_samples=$2
work=$3
# shellcheck source=cli_checks.sh
source "$(dirname "$0")/cli_checks.sh"
fresh_samples "$make_samples"
play="$work/samples/play/project.qrdprj"

expect 0 "$cli" play "$play" --auto --mode pal --output "file:$work/play.mkv"
[ "$(grep -c ' load$' "$work/out")" -eq 3 ] || fail "not three pages loaded: $(cat "$work/out")"
tail -n 1 "$work/out" | grep -q 'page -  idle$' || fail "no end of the list: $(cat "$work/out")"
expect 0 "$cli" frames "$work/play.mkv" "$work/frames"

python3 - "$work/frames" <<'PY' || fail "the file's frames do not show the pages in order"
import glob, struct, sys, zlib

def centre(path):
    """RGBA of the centre pixel of an 8-bit RGBA PNG."""
    data = open(path, "rb").read()
    pos, idat, width, height = 8, b"", 0, 0
    while pos < len(data):
        length, kind = struct.unpack(">I4s", data[pos:pos + 8])
        body = data[pos + 8:pos + 8 + length]
        if kind == b"IHDR":
            width, height, depth, colour = struct.unpack(">IIBB", body[:10])
            assert depth == 8 and colour == 6, (depth, colour)
        elif kind == b"IDAT":
            idat += body
        pos += 12 + length
    raw, stride, prev, y0 = zlib.decompress(idat), width * 4, bytearray(width * 4), height // 2
    for y in range(y0 + 1):
        kind, line = raw[y * (stride + 1)], bytearray(raw[y * (stride + 1) + 1:(y + 1) * (stride + 1)])
        for i in range(stride):
            a = line[i - 4] if i >= 4 else 0
            b, c = prev[i], prev[i - 4] if i >= 4 else 0
            if kind == 1: line[i] = (line[i] + a) & 255
            elif kind == 2: line[i] = (line[i] + b) & 255
            elif kind == 3: line[i] = (line[i] + (a + b) // 2) & 255
            elif kind == 4:
                p = a + b - c
                pa, pb, pc = abs(p - a), abs(p - b), abs(p - c)
                line[i] = (line[i] + (a if pa <= pb and pa <= pc else b if pb <= pc else c)) & 255
        prev = line
    x = width // 2 * 4
    return tuple(prev[x:x + 4])

pages = [(0xE0, 0x20, 0x20), (0x20, 0xC0, 0x20), (0x20, 0x40, 0xE0)]
runs = []
frames = sorted(glob.glob(sys.argv[1] + "/frame_*.png"))
for path in frames:
    r, g, b, a = centre(path)
    if a < 250:
        continue  # empty, or a fade on its way
    page = min(range(3), key=lambda i: sum(abs(u - v) for u, v in zip((r, g, b), pages[i])))
    assert sum(abs(u - v) for u, v in zip((r, g, b), pages[page])) < 24, (path, r, g, b)
    if runs and runs[-1][0] == page:
        runs[-1][1] += 1
    else:
        runs.append([page, 1])
print("runs:", runs, "of", len(frames), "frames")
assert [p for p, _ in runs] == [0, 1, 2], runs
# A second at 25 frames and the cut; the output may start late in a slow
# (sanitizer) build, which only lengthens the first page.
assert all(20 <= n <= 60 for _, n in runs), runs
assert centre(frames[-1])[3] == 0, "the output is not empty at the end"
PY

# The range backwards plays its first page alone; discarded pages and
# broken requests.
expect 0 "$cli" play "$play" --pages 3-1 --auto --output null
grep -q 'page 3 plays alone' "$work/err" || fail "no word of the range: $(cat "$work/err")"
[ "$(grep -c ' load$' "$work/out")" -eq 1 ] || fail "not one page: $(cat "$work/out")"
expect 0 "$cli" play "$play" --pages 1-2 --auto --output null
[ "$(grep -c ' load$' "$work/out")" -eq 2 ] || fail "not pages 1 and 2: $(cat "$work/out")"
expect 0 "$cli" play "$play" --pages 2-2 --output null
grep -q 'page 2  gone$' "$work/out" || fail "page 2 not played by hand: $(cat "$work/out")"
expect 2 "$cli" play "$play" --auto
expect 2 "$cli" play "$play" --pages x --output null
expect 2 "$cli" play "$play" --repeat 10001 --output null
expect 1 "$cli" play "$work/missing.qrdprj" --output null
# An output that cannot start gives way to the clock: the list still plays
# to its end, and the failure is the exit status.
expect 1 "$cli" play "$play" --pages 1 --auto --mode pal --output file:/no/such/folder/x.mkv
grep -q 'page 1  gone$' "$work/out" || fail "no play after the failure: $(cat "$work/out")"
grep -q 'failed' "$work/err" || fail "the failure is not said: $(cat "$work/err")"

# A stop by signal ends the endless list cleanly.
"$cli" play "$play" --auto --repeat 0 --output null >"$work/out" 2>"$work/err" &
pid=$!
sleep 3
kill -TERM "$pid"
wait "$pid" || fail "a stopped play exited $?: $(cat "$work/err")"
grep -q '^stopped$' "$work/out" || fail "no stop: $(cat "$work/out")"
# The live sample through the file: lines typed on, a badge whose picture
# changes every ten frames (speed 9) for the counted two seconds, and a logo
# that changes every frame while its animation plays.
live="$work/samples/live/project.qrdprj"
expect 0 "$cli" play "$live" --auto --mode pal --output "file:$work/live.mkv"
grep -q 'page 1  blink$' "$work/out" || fail "no blink: $(cat "$work/out")"
grep -q 'page 2  live$' "$work/out" || fail "no live stage: $(cat "$work/out")"
expect 0 "$cli" frames "$work/live.mkv" "$work/live_frames"
python3 - "$work/live_frames" <<'PY' || fail "the live sample's frames do not blink and play"
import glob, hashlib, sys
frames = sorted(glob.glob(sys.argv[1] + "/frame_*.png"))
h = [hashlib.md5(open(p, "rb").read()).hexdigest() for p in frames]
changes = [i for i in range(1, len(h)) if h[i] != h[i - 1]]
# The blink: changes ten frames apart, each back to the picture of twenty
# frames before.
blink = [c for c in changes if c >= 20 and h[c] == h[c - 20] and c - 10 in changes]
print("blink changes:", blink)
assert len(blink) >= 8, blink
# The logo: a long run of frames each unlike the one before.
run = best = 0
for i in range(1, len(h)):
    run = run + 1 if h[i] != h[i - 1] else 0
    best = max(best, run)
print("longest run of changing frames:", best)
assert best >= 40, best
PY
echo "play command: all checks passed"
