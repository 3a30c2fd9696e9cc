#!/usr/bin/env bash
# orvantis-cli play under automation: the sample project driven over the
# line protocol and over HTTP by clients of the test's own, the run ended by
# SIGINT as a station ends it; then the control options that are refused.
set -euo pipefail
cli=$1
make_samples=$2
work=$3
# shellcheck source=cli_checks.sh
source "$(dirname "$0")/cli_checks.sh"
fresh_samples "$make_samples"
play="$work/samples/play/project.qrdprj"

# A free port and the one after it, for the HTTP face.
port=$(python3 -c '
import socket
for p in range(20000 + __import__("os").getpid() % 20000, 65000, 2):
    try:
        a, b = socket.socket(), socket.socket()
        a.bind(("127.0.0.1", p)); b.bind(("127.0.0.1", p + 1))
        a.close(); b.close(); print(p); break
    except OSError:
        pass')

"$cli" play "$play" --mode pal --output null --control "127.0.0.1:$port" \
    >"$work/out" 2>"$work/err" &
pid=$!
python3 - "$port" <<'PY' || { kill -INT "$pid"; wait "$pid" || true; fail "the session went wrong: $(cat "$work/err")"; }
import http.client, json, socket, sys, time

port = int(sys.argv[1])
deadline = time.time() + 30
while True:
    try:
        s = socket.create_connection(("127.0.0.1", port), timeout=10)
        break
    except OSError:
        if time.time() > deadline:
            raise
        time.sleep(0.1)
f = s.makefile("rwb")

def ask(line):
    f.write(line.encode() + b"\r\n")
    f.flush()
    return f.readline().decode().rstrip("\r\n")

def info():
    assert ask("INFO") == "200 INFO OK"
    lines = {}
    while True:
        line = f.readline().decode().rstrip("\r\n")
        if not line:
            return lines
        key, _, value = line.rpartition(" ")
        lines[key] = value

def until_on_air(page):
    end = time.time() + 20
    while info().get("on air") != str(page):
        assert time.time() < end, "page %d never came on air" % page
        time.sleep(0.05)

assert ask("VERSION") == "201 VERSION OK"
f.readline()
assert ask('CG 1 ADD 1 "play/2" 1') == "202 ADD OK"
until_on_air(2)
assert ask('CG 1 ADD 1 "../play/1" 1').startswith("403 ")
assert ask('CG 1 ADD 1 "play/9" 1').startswith("404 ")
assert ask("REQ x CG 1 STOP") == "RES x 202 STOP OK"

web = http.client.HTTPConnection("127.0.0.1", port + 1, timeout=10)
web.request("POST", "/api/take", body=json.dumps({"page": 3, "data": {"name": "Kim"}}))
answer = json.loads(web.getresponse().read())
assert answer["ok"], answer
end = time.time() + 20
while True:
    web.request("GET", "/api/status")
    status = json.loads(web.getresponse().read())
    if status["onAir"] == 3:
        break
    assert time.time() < end, status
    time.sleep(0.05)
assert status["project"] == "play" and status["pages"] == 3, status
web.request("POST", "/api/erase")
assert web.getresponse().status == 200
PY
kill -INT "$pid"
status=0
wait "$pid" || status=$?
[ "$status" -eq 0 ] || fail "the run ended with $status: $(cat "$work/err")"
grep -q "control: lines on 127.0.0.1 port $port, HTTP on port $((port + 1))" "$work/out" ||
    fail "no word of the server: $(cat "$work/out")"
grep -q " on air$" "$work/out" || fail "no page on air: $(cat "$work/out")"
# The data sent stays beside the project file for the next run.
grep -q '"name": "Kim"' "$work/samples/play/data.json" ||
    fail "no data kept: $(cat "$work/samples/play/data.json" 2>&1)"

# Off loopback only with a token; ports that cannot be.
expect 2 "$cli" play "$play" --output null --control 0.0.0.0:5250
grep -q "token" "$work/err" || fail "no word of the token: $(cat "$work/err")"
expect 2 "$cli" play "$play" --output null --control 65535
expect 2 "$cli" play "$play" --output null --control nowhere:5250
echo "control session passed"
