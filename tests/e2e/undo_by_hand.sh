#!/bin/sh
# Undo used by hand under a real X server of its own: open a sliced print,
# which shows its first printed layer fitted, drag a vertex and save with
# Ctrl+S, then take the drag back with Ctrl+Z and save again. The second
# file must be byte for byte what a plain save of the untouched print
# writes.
# usage: undo_by_hand.sh KORVEXED KORVEXED_CLI SCREEN_VERTICES FIXTURE
. "$(dirname "$0")/e2e_lib.sh"
editor=$1 cli=$2 screen_vertices=$3 fixture=$4

open_print "$editor" "$fixture"

# A lone vertex dot, the same twice in a row: the screen has settled after
# the load.
dot() { "$screen_vertices" --apart 6 2>/dev/null | head -n 1 >"$work/dot" && [ -s "$work/dot" ]; }
settled() { dot && cp "$work/dot" "$work/dot.first" && dot && cmp -s "$work/dot" "$work/dot.first"; }
wait_for 100 settled || fail "no lone vertex on the screen"
read -r ax ay <"$work/dot"

# Waits until the saved file differs from $1: it is replaced in one step,
# so once it differs, it is whole.
differs() { ! cmp -s "$1" "$work/print.gcode"; }

xdotool mousemove "$ax" "$ay" click 1
xdotool mousemove "$ax" "$ay" mousedown 1
xdotool mousemove "$((ax + 40))" "$((ay + 30))" mouseup 1
xdotool key ctrl+s
wait_for 100 differs "$fixture" || fail "the drag was not saved"
cp "$work/print.gcode" "$work/dragged.gcode"
xdotool key ctrl+z
xdotool key ctrl+s
wait_for 100 differs "$work/dragged.gcode" || fail "nothing saved after Ctrl+Z"
kill "$editor_pid"
wait "$editor_pid" 2>/dev/null || true
editor_pid=

"$cli" convert "$fixture" -o "$work/plain.gcode"
! cmp -s "$work/plain.gcode" "$work/dragged.gcode" || fail "the drag moved nothing"
cmp "$work/plain.gcode" "$work/print.gcode" || fail "the file saved after Ctrl+Z is not the untouched print"
