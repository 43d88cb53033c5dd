#!/bin/sh
# Undo used by hand under a real X server of its own: drag a vertex of the
# first printed layer and save with Ctrl+S, then take the drag back with
# Ctrl+Z and save again. The second file must be byte for byte what a
# plain save of the untouched print writes.
# usage: undo_by_hand.sh KORVEXED KORVEXED_CLI SCREEN_VERTICES FIXTURE
if [ -z "${KORVEXED_E2E_SERVER:-}" ]; then
  KORVEXED_E2E_SERVER=1 exec xvfb-run -a -s "-screen 0 1280x1024x24" sh "$0" "$@"
fi
editor=$1 cli=$2 screen_vertices=$3 fixture=$4
layer=1 # the first printed layer
. "$(dirname "$0")/by_hand.sh"

# A lone vertex dot, the same twice in a row: the screen has settled after F4.
dot() { "$screen_vertices" --apart 6 2>/dev/null | head -n 1 >"$work/dot" && [ -s "$work/dot" ]; }
settled() { dot && cp "$work/dot" "$work/dot.first" && dot && cmp -s "$work/dot" "$work/dot.first"; }
wait_for 100 settled || fail "no lone vertex on the screen"
read -r ax ay <"$work/dot"

xdotool mousemove "$ax" "$ay" click 1
xdotool mousemove "$ax" "$ay" mousedown 1
xdotool mousemove "$((ax + 40))" "$((ay + 30))" mouseup 1
xdotool key ctrl+s
await_save "$fixture"
cp "$work/print.gcode" "$work/dragged.gcode"
xdotool key ctrl+z
xdotool key ctrl+s
await_last_save "$work/dragged.gcode"

"$cli" convert "$fixture" -o "$work/plain.gcode"
! cmp -s "$work/plain.gcode" "$work/dragged.gcode" || fail "the drag moved nothing"
cmp "$work/plain.gcode" "$work/print.gcode" || fail "the file saved after Ctrl+Z is not the untouched print"
