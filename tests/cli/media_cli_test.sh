#!/usr/bin/env bash
# orvantis-cli's animation commands as a user runs them: a folder of
# numbered pictures becomes an ANI32 in the order of their numbers, a
# picture of another size is left out and reported, frames come back as
# PNG files, and damage and bad usage have their exit status.
set -euo pipefail
cli=$1
work=$2
rm -rf "$work"
mkdir -p "$work/seq"

# shellcheck source=cli_checks.sh
source "$(dirname "$0")/cli_checks.sh"

contains() {
    grep -qF -- "$2" "$work/$1" || fail "'$2' not in $1: $(cat "$work/$1")"
}

expect 0 "$cli" demo "$work/seq/take1.png"
cp "$work/seq/take1.png" "$work/seq/take2.png"
cp "$work/seq/take1.png" "$work/seq/take10.png"
# A 2 x 2 TGA, 32 bits, top-left origin: third in play order, and left out.
printf '\0\0\2\0\0\0\0\0\0\0\0\0\2\0\2\0\40\50' >"$work/seq/take3.tga"
for pixel in 1 2 3 4; do printf '\377\0\0\377' >>"$work/seq/take3.tga"; done
[ "$(stat -c %s "$work/seq/take3.tga")" -eq 34 ] || fail "the TGA is not 34 bytes"
echo "not a picture" >"$work/seq/notes.txt"

expect 0 "$cli" seq2ani "$work/logo.ani32" "$work/seq"
contains out "4 frames of 1920 x 1080, 1 left out"

expect 0 "$cli" ani-info "$work/logo.ani32"
contains out "format: ANI32"
contains out "frames: 4"
contains out "size: 1920 x 1080"
contains out "frame 2: skipped (offset 0)"
contains out "offsets: 3 good, 1 skipped, 0 damaged"

expect 0 "$cli" ani-frame "$work/logo.ani32" 3 "$work/frame3.png"
[ -s "$work/frame3.png" ] || fail "no frame written"
expect 1 "$cli" ani-frame "$work/logo.ani32" 2 "$work/skipped.png"
contains err "frame 2 of 4 cannot be read"
expect 1 "$cli" ani-frame "$work/logo.ani32" 4 "$work/past.png"
expect 2 "$cli" ani-frame "$work/logo.ani32" three "$work/x.png"

# Files named one by one keep the order given.
expect 0 "$cli" seq2ani "$work/two.ani32" "$work/seq/take10.png" "$work/seq/take1.png"
contains out "2 frames of 1920 x 1080"

# The last frame cut off by the end of the file.
cp "$work/logo.ani32" "$work/cut.ani32"
truncate -s -1000 "$work/cut.ani32"
expect 1 "$cli" ani-info "$work/cut.ani32"
contains out "frame 3: runs past the end of the file"

expect 1 "$cli" seq2ani "$work/bad.ani32" "$work/seq/notes.txt"
contains err "Failed converting TGA(PNG) sequence files to animation file."
[ ! -e "$work/bad.ani32" ] || fail "a failed conversion left a file"
expect 1 "$cli" ani-info "$work/seq/notes.txt"
expect 2 "$cli" seq2ani "$work/only-output.ani32"
echo "media commands: all checks passed"
