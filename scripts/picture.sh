#!/usr/bin/env bash
# Shows a program's window on a display of its own and saves a picture of the screen: picture.sh FILE.png PROGRAM ARGS…
# The program is ended afterwards. PICTURE_SIZE (default 1280x800) is the size of the screen.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

[ $# -ge 2 ] || die "usage: picture.sh FILE.png PROGRAM [ARGS…]"
picture=$1
shift
[[ $picture = /* ]] || picture=$PWD/$picture

work=$(mktemp -d)
started=()
clean_up() {
    # The last process ends first, because a program whose display ends prints errors.
    local index
    for ((index = ${#started[@]} - 1; index >= 0; index--)); do
        kill "${started[index]}" 2>/dev/null || true
        wait "${started[index]}" 2>/dev/null || true
    done
    rm -rf "$work"
}
trap clean_up EXIT

# wait_for TENTHS COMMAND…: tries the command ten times a second until it succeeds.
wait_for() {
    local tries=$1
    shift
    until "$@" >/dev/null 2>&1; do
        tries=$((tries - 1))
        [ "$tries" -gt 0 ] || return 1
        sleep 0.1
    done
}

# Succeeds if the program shows a window or has ended.
window_or_end() {
    xdotool search --onlyvisible --pid "$program" || ! kill -0 "$program"
}

# Succeeds if the screen has not changed since the previous call.
screen_at_rest() {
    sleep 0.3
    scrot --overwrite "$work/now.png"
    cmp -s "$work/now.png" "$work/before.png" && return 0
    mv "$work/now.png" "$work/before.png"
    return 1
}

Xvfb -displayfd 3 -screen 0 "${PICTURE_SIZE:-1280x800}x24" -nolisten tcp 3>"$work/display" 2>"$work/xvfb.log" &
started+=($!)
wait_for 100 test -s "$work/display" || die "Xvfb did not start: $(tail -n 1 "$work/xvfb.log")"
DISPLAY=:$(cat "$work/display")
export DISPLAY
# openbox never shows a window that is opened before it has started.
openbox --startup "touch '$work/managed'" >"$work/openbox.log" 2>&1 &
started+=($!)
wait_for 100 test -e "$work/managed" || die "openbox did not start: $(tail -n 1 "$work/openbox.log")"

# Without the session's message bus: a Tabulon that runs in the session would open the files instead.
env DBUS_SESSION_BUS_ADDRESS=disabled: "$@" &
program=$!
started+=("$program")
wait_for 300 window_or_end || die "$1 showed no window within 30 seconds"
kill -0 "$program" 2>/dev/null || die "$1 ended before it showed a window"
wait_for 20 screen_at_rest || say "The window kept changing; the picture is of one moment of it."
mkdir -p "$(dirname "$picture")"
mv "$work/now.png" "$picture" 2>/dev/null || mv "$work/before.png" "$picture"
say "The picture of the window is in $picture"
