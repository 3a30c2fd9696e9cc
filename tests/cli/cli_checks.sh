# Sourced by the command-line tests; $work is the test's scratch folder.

# fresh_samples MAKE_SAMPLES: an empty $work holding the sample projects
# under $work/samples.
fresh_samples() {
    rm -rf "$work"
    mkdir -p "$work"
    "$1" "$work/samples" >/dev/null
}

fail() {
    echo "FAIL: $*" >&2
    exit 1
}

# expect STATUS COMMAND...: the command exits with STATUS; stdout kept in
# $work/out, stderr in $work/err.
expect() {
    local want=$1 got=0
    shift
    "$@" >"$work/out" 2>"$work/err" || got=$?
    [ "$got" -eq "$want" ] || fail "$* exited $got, not $want: $(cat "$work/err")"
}
