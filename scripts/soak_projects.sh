#!/usr/bin/env bash
# Soak of projects on disk: a scripted editing session is killed with
# SIGKILL at a random moment, again and again, and after every kill the
# project must open and hold either the state it was opened with or the
# state of the last save that began (the one before it too, if that save
# was cut short). A session that ended cleanly must leave nothing to recover.
#
#   scripts/soak_projects.sh [ROUNDS]     (100 rounds unless told)
#
# The session program is found through ORV_PROJECT_SESSION, else in build/.
set -euo pipefail
rounds=${1:-100}
here=$(cd "$(dirname "$0")/.." && pwd)
session=${ORV_PROJECT_SESSION:-$here/build/tests/soak/orv_project_session}
[[ -x $session ]] || { echo "no session program at $session (build first)" >&2; exit 2; }
export QT_QPA_PLATFORM=offscreen
work=$(mktemp -d)
# Kept when the soak fails, to read what each round did.
trap 'if (($? == 0)); then rm -rf "$work"; else echo "logs kept in $work" >&2; fi' EXIT
project=$work/Soak
seed=${ORV_SOAK_SEED:-$RANDOM}
echo "soak: $rounds rounds, seed $seed, in $work"
RANDOM=$seed

# The states the project may hold after a round's log, one per line.
allowed_after() {
    awk '
        $1 == "opened" || $1 == "recovered" { held = $2 " " $3; inflight = "" }
        $1 == "saving" || $1 == "closing" { inflight = $2 " " $3 }
        $1 == "saved" || $1 == "closed" { held = $2 " " $3; inflight = "" }
        END { print held; if (inflight != "") print inflight }
    ' "$1"
}

previous=""
for ((round = 1; round <= rounds; ++round)); do
    log=$work/round$round.log
    "$session" "$project" "$log" $((seed + round)) 2>"$work/stderr" &
    pid=$!
    # From the very start (mid-open) to a few seconds of editing.
    sleep "$((RANDOM % 1500 / 1000)).$(printf '%03d' $((RANDOM % 1000)))"
    kill -KILL "$pid" 2>/dev/null || true
    status=0
    { wait "$pid"; } 2>/dev/null || status=$?
    if ((status != 0 && status != 137)); then
        echo "round $round: the session failed ($status): $(cat "$work/stderr")" >&2
        exit 1
    fi
    if [[ -n $previous && -s $log ]]; then
        read -r how state pages < <(head -1 "$log")
        if ! allowed_after "$previous" | grep -qxF -- "$state $pages"; then
            echo "round $round: opened state $state/$pages pages; allowed:" \
                "$(allowed_after "$previous" | tr '\n' ';')" >&2
            exit 1
        fi
        if grep -q '^damaged' "$log"; then
            echo "round $round: the working file was found damaged" >&2
            exit 1
        fi
        # Whether it recovers is known only from the round just before: a
        # round killed mid-open may have recovered already, or not yet.
        if [[ $previous == "$work/round$((round - 1)).log" ]]; then
            if tail -1 "$previous" | grep -q '^closed' && [[ $how == recovered ]]; then
                echo "round $round: recovery after a clean close" >&2
                exit 1
            fi
            if ! tail -1 "$previous" | grep -q '^clos' && [[ $how == opened ]]; then
                echo "round $round: no recovery after a kill" >&2
                exit 1
            fi
        fi
    fi
    # A round killed before its open finished leaves the last one's states.
    if [[ -s $log ]]; then previous=$log; fi
done
saves=$(cat "$work"/round*.log | grep -c '^saved' || true)
echo "soak: $rounds rounds, $saves saves, every reopen held an allowed state"
