#!/usr/bin/env bash
# orvantis-cli transition on the sample projects, as a designer runs it: the
# frames of an in and an out add up as the step arithmetic says, the sheet
# is a picture, a page of another size plays at its size, and bad requests
# fail with their exit status.
set -euo pipefail
cli=$1
make_samples=$2
work=$3
# shellcheck source=cli_checks.sh
source "$(dirname "$0")/cli_checks.sh"
fresh_samples "$make_samples"
demo="$work/samples/demo/project.qrdprj"

# 1080 lines by 50 a field: 22 sub-steps, 11 frames and the last capture in;
# the same out, and four frames before the key is full again; one held.
expect 0 "$cli" transition "$demo" 1 --in 18 --out 21 --speed 10 --sheet "$work/wipe.png"
grep -q '^29 frames: in Wipe Down, out Wipe Up at speed 10$' "$work/out" ||
    fail "wipe frames: $(cat "$work/out")"
python3 - "$work/wipe.png" <<'PY' || fail "the sheet is no PNG of six columns"
import struct, sys
data = open(sys.argv[1], "rb").read(32)
assert data[:8] == b"\x89PNG\r\n\x1a\n", data[:8]
width, height = struct.unpack(">II", data[16:24])
assert width == 12 + 6 * (320 + 12) and height > 180, (width, height)
PY

# A cut in without fade is one frame and the capture; "No transition" out
# without fade has no out stage at all.
expect 0 "$cli" transition "$demo" 1 --in 3 --out 2 --hold 3 --sheet "$work/cut.png"
grep -q '^5 frames:' "$work/out" || fail "cut frames: $(cat "$work/out")"

expect 0 "$cli" transition "$work/samples/sd/project.qrdprj" 1 --in 5 --out 5 --mode pal \
    --sheet "$work/sd.png"
grep -q 'the page is 640 x 480 and plays at that size' "$work/err" || fail "no note of the size"

expect 1 "$cli" transition "$work/missing.qrdprj" 1 --in 3 --out 2 --sheet "$work/x.png"
expect 1 "$cli" transition "$demo" 1 --in 3 --out 2 --sheet "$work/no/such/folder/x.png"
expect 2 "$cli" transition "$demo" 2 --in 3 --out 2 --sheet "$work/x.png"
expect 2 "$cli" transition "$demo" 1 --in 1 --out 2 --sheet "$work/x.png"
expect 2 "$cli" transition "$demo" 1 --in 3 --out 2 --speed 11 --sheet "$work/x.png"
expect 2 "$cli" transition "$demo" 1 --in 3 --out 2
echo "transition command: all checks passed"
