#!/usr/bin/env bash
# orvantis-cli on the sample projects, as a user runs it: re-saving leaves
# every file byte for byte as it was, info and info --json describe what the
# samples hold, pages render to images with transparency, and every failure
# has its exit status and one line naming the file.
set -euo pipefail
cli=$1
make_samples=$2
work=$3
# shellcheck source=cli_checks.sh
source "$(dirname "$0")/cli_checks.sh"
fresh_samples "$make_samples"

for project in "$work"/samples/*/project.qrdprj; do
    expect 0 "$cli" resave "$project" "$work/resaved.qrdprj"
    cmp "$project" "$work/resaved.qrdprj" || fail "resave of $project changed bytes"
done

# A longer old file keeps its tail: the re-save into it stops where the list ends.
sample="$work/samples/demo/project.qrdprj"
cp "$sample" "$work/long.qrdprj"
head -c 5000 /dev/urandom >>"$work/long.qrdprj"
cp "$work/long.qrdprj" "$work/long-before.qrdprj"
expect 0 "$cli" resave "$work/long.qrdprj" "$work/long.qrdprj"
cmp "$work/long.qrdprj" "$work/long-before.qrdprj" || fail "re-save in place changed a longer file"

expect 0 "$cli" info "$work/samples/pages/project.qrdprj"
grep -q "^Version 1.3, frame 1920 x 1080, 3 pages$" "$work/out" || fail "info header: $(head -1 "$work/out")"
grep -q '^Page 2: Roll' "$work/out" || fail "info lists no Roll page"
grep -q 'CQRDObjectText .*"Good evening"' "$work/out" || fail "info lists no text"
grep -q '^    CQRDObjectText .*"Inside"' "$work/out" || fail "info does not indent members"

expect 0 "$cli" info --json "$work/samples/demo/project.qrdprj"
python3 - "$work/out" <<'PY' || fail "info --json"
import json, sys
p = json.load(open(sys.argv[1]))
assert p["version"] == 1.3 and p["width"] == 1920 and p["height"] == 1080, p
page = p["pages"][0]
assert page["type"] == 0 and len(page["effect"]) == 11 and page["background"] == "sky.png"
kinds = [o["class"] for o in page["objects"]]
for k in ("CQRDObjectText", "CQRDObjectShape", "CQRDObjectTC", "CQRDObjectAni"):
    assert k in kinds, kinds
texts = [o["text"] for o in page["objects"] if o["class"] == "CQRDObjectText"]
assert "안녕하세요 방송입니다" in texts, texts
timer = next(o for o in page["objects"] if o["class"] == "CQRDObjectTC")
assert timer["setting"] == [0, 7, 0, 3661, 0, 0], timer
ani = next(o for o in page["objects"] if o["class"] == "CQRDObjectAni")
assert ani["file"] == "spin.ani" and ani["rect"] == [1500, 300, 1800, 500], ani
pictures = sorted(o["file"] for o in page["objects"] if o["class"] == "CQRDObjectPicture")
assert pictures == ["emblem.png", "weather.png"], pictures
PY

expect 0 "$cli" info --json "$work/samples/pages/project.qrdprj"
python3 - "$work/out" <<'PY' || fail "info --json with groups"
import json, sys
p = json.load(open(sys.argv[1]))
assert [page["type"] for page in p["pages"]] == [0, 1, 2]
group = p["pages"][0]["objects"][0]
assert group["class"] == "CQRDObjectGroup", group
members = group["members"]
assert [m["class"] for m in members] == ["CQRDObjectText", "CQRDObjectShape", "CQRDObjectGroup"]
assert members[0]["text"] == "Inside" and members[2]["members"][0]["class"] == "CQRDObjectShape"
assert p["pages"][1]["objects"][0]["text"] == "Credits\rDirector\rProducer"
PY

expect 0 "$cli" render "$sample" 1 "$work/page.png"
expect 0 "$cli" render "$work/samples/sd/project.qrdprj" 1 "$work/sd.tga"
python3 - "$work/page.png" "$work/sd.tga" <<'PY' || fail "rendered images"
import struct, sys, zlib
png = open(sys.argv[1], 'rb').read()
assert png[:8] == b'\x89PNG\r\n\x1a\n'
w, h, depth, colour = struct.unpack('>IIBB', png[16:26])
assert (w, h, depth, colour) == (1920, 1080, 8, 6), (w, h, depth, colour)  # RGBA
tga = open(sys.argv[2], 'rb').read()
assert struct.unpack('<HH', tga[12:16]) == (640, 480) and tga[16] == 32
assert len(tga) >= 18 + 640 * 480 * 4
PY

expect 0 "$cli" export-all "$work/samples/pages/project.qrdprj" "$work/pages"
[ -f "$work/pages/page001.png" ] && [ -f "$work/pages/page003.png" ] || fail "export-all"
[ ! -e "$work/pages/page004.png" ] || fail "export-all wrote a page too many"

# Failures: 1 with one line that names the file, 2 for bad usage.
head -c 300 "$sample" >"$work/cut.qrdprj"
expect 1 "$cli" info "$work/cut.qrdprj"
[ "$(wc -l <"$work/err")" -eq 1 ] && grep -q "cut.qrdprj: " "$work/err" || fail "message: $(cat "$work/err")"
cp "$work/cut.qrdprj" "$work/cut-before.qrdprj"
expect 1 "$cli" resave "$work/cut.qrdprj" "$work/cut.qrdprj"
cmp "$work/cut.qrdprj" "$work/cut-before.qrdprj" || fail "a failed load touched the file"
expect 1 "$cli" render "$work/missing.qrdprj" 1 "$work/x.png"
grep -q "missing.qrdprj" "$work/err" || fail "missing file not named"
expect 2 "$cli" info
expect 2 "$cli" render "$sample" 0 "$work/x.png"
expect 2 "$cli" render "$sample" 2 "$work/x.png"
expect 2 "$cli" render "$sample" 1 "$work/x.bmp"
expect 2 "$cli" resave "$sample"
expect 2 "$cli" export-all "$sample"
echo "project commands: all checks passed"
