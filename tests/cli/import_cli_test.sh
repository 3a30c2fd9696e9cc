#!/usr/bin/env bash
# orvantis-cli import-text and import-slides as a newsroom feed runs them:
# pages added and the project saved, a Korean UTF-8 file read as Hangul,
# and failures that leave the project file byte for byte as it was.
set -euo pipefail
cli=$1
make_samples=$2
work=$3
# shellcheck source=cli_checks.sh
source "$(dirname "$0")/cli_checks.sh"
fresh_samples "$make_samples"

project="$work/samples/pages/project.qrdprj"
pages() { "$cli" info "$project" | sed -n 's/.*, \([0-9]*\) pages$/\1/p'; }
before=$(pages)

printf '주 하나님 지으신 모든 세계\r\nHow great thou art\r\n//\r\n내 영혼이 주를 찬양하니\r\n' >"$work/lyrics.txt"
expect 0 "$cli" import-text "$project" "$work/lyrics.txt" --append
[ "$(pages)" -eq $((before + 2)) ] || fail "import-text made $(pages) pages from $before"
"$cli" info "$project" >"$work/info"
grep -q '"주 하나님 지으신 모든 세계' "$work/info" || fail "the Hangul did not survive: $(cat "$work/info")"
grep -q '"내 영혼이 주를 찬양하니"' "$work/info" || fail "the second page is missing"
grep -q '//' "$work/info" && fail "a // mark became text"

printf 'one\ntwo\nthree\n' >"$work/three.txt"
expect 0 "$cli" import-text "$project" "$work/three.txt" --lines 1
[ "$(pages)" -eq $((before + 5)) ] || fail "one line per page: $(pages) pages"

cp "$project" "$work/kept.qrdprj"
: >"$work/empty.txt"
expect 1 "$cli" import-text "$project" "$work/empty.txt"
printf '\x7fELF\x00\x00\x01\x02' >"$work/binary.txt"
expect 1 "$cli" import-text "$project" "$work/binary.txt"
grep -q 'binary.txt' "$work/err" || fail "the failure does not name the file"
expect 1 "$cli" import-slides "$project" "$work/missing.pptx"
printf 'PK\x03\x04 damaged' >"$work/damaged.pptx"
expect 1 "$cli" import-slides "$project" "$work/damaged.pptx"
cmp "$project" "$work/kept.qrdprj" || fail "a failed import changed the project file"

expect 2 "$cli" import-text "$project"
expect 2 "$cli" import-text "$project" "$work/three.txt" --lines 0
expect 2 "$cli" import-slides "$project"
echo "import commands: all checks passed"
