#!/usr/bin/env bash
# Makes the pictures of the user guide (docs/images/) from the sample projects
# that the tests build, with the editor in a virtual X display, so that the
# guide shows the program as it is. Run by hand after a build:
#   scripts/screenshots.sh [BUILD_DIR] [OUT_DIR]   (default: build docs/images)
# Needs Xvfb, xdotool and gst-launch-1.0 (packages xvfb, xdotool,
# gstreamer1.0-tools); the window is 1280 x 800 and the PNGs are committed.
set -euo pipefail
cd "$(dirname "$0")/.."
build=$(realpath "${1:-build}")
out=$(realpath -m "${2:-docs/images}")
for tool in Xvfb xdotool gst-launch-1.0; do
    command -v "$tool" >/dev/null || { echo "error: $tool is not installed" >&2; exit 1; }
done
work=$(mktemp -d)
editor_pid=
xvfb_pid=
cleanup() {
    [ -z "$editor_pid" ] || kill "$editor_pid" 2>/dev/null || true
    [ -z "$xvfb_pid" ] || kill "$xvfb_pid" 2>/dev/null || true
    rm -rf "$work"
}
trap cleanup EXIT
mkdir -p "$out"

export ORVANTIS_HOME=$work/home LANG=C.UTF-8 LC_ALL=C.UTF-8
"$build/tests/project/make_sample_projects" "$work/samples" >/dev/null

display=:$((90 + RANDOM % 100))
Xvfb "$display" -screen 0 1280x800x24 -nolisten tcp >/dev/null 2>&1 &
xvfb_pid=$!
export DISPLAY=$display QT_QPA_PLATFORM=xcb
sleep 1

# start_editor PROJECT: the editor on a project, its window over the screen.
start_editor() {
    "$build/app/orvantis" "$1" >"$work/editor.log" 2>&1 &
    editor_pid=$!
    local window
    window=$(xdotool search --sync --onlyvisible --name "Orvantis-HD" | head -n 1)
    xdotool windowmove "$window" 0 0 windowsize "$window" 1280 800
    sleep 2
    xdotool mousemove 640 400 windowfocus "$window"
    sleep 0.5
}

stop_editor() {
    kill "$editor_pid"
    wait "$editor_pid" 2>/dev/null || true
    editor_pid=
}

# shot NAME: the whole screen as OUT/NAME.png.
shot() {
    gst-launch-1.0 -q ximagesrc use-damage=false num-buffers=1 ! videoconvert ! \
        pngenc compression-level=9 ! filesink location="$out/$1.png"
    echo "$out/$1.png"
}

# key KEYS...: keys to the focused window, a moment apart.
key() {
    local k
    for k in "$@"; do
        xdotool key "$k"
        sleep 0.3
    done
}

samples=$work/samples

# The sample page, as a project opened from the command line.
start_editor "$samples/demo/project.qrdprj"
xdotool mousemove 1279 799
shot editor-demo

# Play Mode (F5, the Run tab's button), and the page taken on air with the
# keypad's Enter.
key F5
sleep 1
key KP_Enter
sleep 3
shot play-mode
stop_editor

# A name typed on an empty page: a double click starts a text.
start_editor "$samples/empty/project.qrdprj"
xdotool mousemove 300 560 click --repeat 2 --delay 80 1
sleep 0.5
xdotool type --delay 40 "Jane Doe"
key Return
xdotool type --delay 40 "Weather, Busan"
xdotool mousemove 1279 799
sleep 1
shot lower-third
stop_editor

# File > Import Text File... (the eighth entry), with two pages of lyrics
# typed into its text box, which lies just above the buttons at its foot.
# (Another project: a killed editor leaves its working file behind, and the
# next open would first say it recovered it.)
start_editor "$samples/pages/project.qrdprj"
key alt+f Down Down Down Down Down Down Down Return
dialog=$(xdotool search --sync --onlyvisible --name "Import Text File" | head -n 1)
eval "$(xdotool getwindowgeometry --shell "$dialog")"
xdotool mousemove $((X + WIDTH / 2)) $((Y + HEIGHT - 110)) click 1
for line in "Amazing grace, how sweet the sound" "That saved a wretch like me" "//" \
    "I once was lost, but now am found" "Was blind, but now I see"; do
    xdotool type --delay 20 "$line"
    key Return
done
xdotool mousemove 1279 799
sleep 1.5
shot import-text
stop_editor

# Rolling credits: the built-in ones as a contact sheet, at two thirds.
"$build/cli/orvantis-cli" transition demo 1 --roll --mode 1080p25 --sheet "$work/sheet.png" >/dev/null
gst-launch-1.0 -q filesrc location="$work/sheet.png" ! pngdec ! videoconvert ! videoscale ! \
    video/x-raw,width=1336,height=593 ! videoconvert ! pngenc compression-level=9 ! \
    filesink location="$out/credits-sheet.png"
echo "$out/credits-sheet.png"
