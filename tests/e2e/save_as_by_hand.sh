#!/bin/sh
# Save As used as a person uses it, under a real X server of its own: the
# chooser opens on the document itself, its folder and name filled in, so
# Enter asks to replace it and Yes saves it in place. (That a failed save's
# folder is not where the next chooser opens is the window tests' to check:
# typing a path into Qt's chooser under a bare X server loses keys to its
# name completer.)
# usage: save_as_by_hand.sh KORVEXED FIXTURE
. "$(dirname "$0")/e2e_lib.sh"
editor=$1 fixture=$2

# The window whose title matches $1, once it shows (at most 10 s).
window_named() { timeout 10 xdotool search --sync --onlyvisible --name "$1" | head -n 1; }
# Save As from the keyboard; waits for its chooser.
save_as() {
  xdotool windowfocus --sync "$main" key alt+f
  sleep 0.3
  xdotool key a
  chooser=$(window_named '^Save As$') || fail "no Save As chooser"
  xdotool windowfocus --sync "$chooser"
  sleep 0.3
}
# Answers Yes to the question whether to replace the file, once it shows
# over the chooser (both bear the chooser's title).
two_save_as_windows() { [ "$(xdotool search --onlyvisible --name '^Save As$' | wc -l)" -ge 2 ]; }
replace() {
  wait_for 50 two_save_as_windows || fail "no question whether to replace the document"
  sleep 0.2
  xdotool key y
}

cp "$fixture" "$work/print.gcode"
"$editor" "$work/print.gcode" >"$work/editor.log" 2>&1 &
editor_pid=$!
main=$(window_named 'print\.gcode') || fail "no window"

# Enter saves over the document: the chooser holds its folder and name.
save_as
xdotool key Return
replace
saved() { ! cmp -s "$fixture" "$work/print.gcode"; }
wait_for 50 saved || fail "Save As did not start on the document"
