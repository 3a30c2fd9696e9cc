#!/usr/bin/env bash
# The manual pages format without a warning, and name every command and
# option that the programs' own help offers, so that neither falls behind.
set -euo pipefail
man_dir=$1
cli=$2
editor=$3
source "$(dirname "$0")/checks.sh"
need groff man
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

for page in orvantis orvantis-cli; do
    groff -man -Tutf8 -ww -z "$man_dir/$page.1" 2>"$work/warnings"
    [ ! -s "$work/warnings" ] || fail "$page.1: $(cat "$work/warnings")"
    MANWIDTH=80 man -l "$man_dir/$page.1" >"$work/$page.txt" 2>"$work/warnings" ||
        fail "man -l $page.1 failed"
    [ ! -s "$work/warnings" ] || fail "man -l $page.1: $(cat "$work/warnings")"
    groff -man -Tascii -P-cbou "$man_dir/$page.1" >"$work/$page.plain"
    for section in NAME SYNOPSIS DESCRIPTION ENVIRONMENT FILES "EXIT STATUS"; do
        grep -qx "$section" "$work/$page.plain" || fail "$page.1 has no $section"
    done
done

# Every word of the help that starts an option or names a command.
"$cli" --help >"$work/cli-help"
commands=$(sed -n 's/^ *\(Usage:\)\? *orvantis-cli \([a-z][a-z0-9-]*\).*/\2/p' "$work/cli-help")
[ "$(echo "$commands" | wc -l)" -ge 15 ] || fail "the help lists too few commands: $commands"
for word in $commands $(grep -o -- '--[a-z][a-z-]*' "$work/cli-help" | sort -u); do
    grep -qw -- "$word" "$work/orvantis-cli.plain" || fail "orvantis-cli.1 does not mention $word"
done
grep -q ORVANTIS_HOME "$work/orvantis-cli.plain" || fail "orvantis-cli.1 has no ORVANTIS_HOME"

QT_QPA_PLATFORM=offscreen "$editor" --help >"$work/editor-help"
for word in $(grep -o -- '--[a-z][a-z-]*' "$work/editor-help" | sort -u); do
    grep -qw -- "$word" "$work/orvantis.plain" || fail "orvantis.1 does not mention $word"
done
echo "manual pages: all checks passed"
