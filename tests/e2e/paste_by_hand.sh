#!/bin/sh
# Copy and Paste used by hand under a real X server of its own: open a
# sliced print (its first printed layer shows, fitted), mark the vertices
# on the screen with a rubber band, copy them with Ctrl+C, go up a layer
# with "+", paste them with the drawing's right-click menu on a line, and
# save with Ctrl+S. The printer must run the copied moves again, higher
# up, each to the same point with the same filament.
# usage: paste_by_hand.sh KORVEXED SCREEN_VERTICES CHECK_PASTE FIXTURE
. "$(dirname "$0")/e2e_lib.sh"
editor=$1 screen_vertices=$2 check_paste=$3 fixture=$4

open_print "$editor" "$fixture"

# The vertex dots on the screen, the same twice in a row: settled.
dots() { "$screen_vertices" --apart 6 2>/dev/null >"$work/dots" && [ -s "$work/dots" ]; }
settled() { dots && cp "$work/dots" "$work/dots.first" && dots && cmp -s "$work/dots" "$work/dots.first"; }
wait_for 100 settled || fail "no vertex on the screen"
# A band from beyond the dots' top left to beyond their bottom right.
read -r left top right bottom <<END
$(awk 'NR == 1 { l = r = $1; t = b = $2 } { if ($1 < l) l = $1; if ($1 > r) r = $1; if ($2 < t) t = $2; if ($2 > b) b = $2 }
       END { print l - 15, t - 15, r + 15, b + 15 }' "$work/dots")
END
xdotool mousemove "$left" "$top" mousedown 1
xdotool mousemove "$((left + 20))" "$((top + 20))"
xdotool mousemove "$right" "$bottom" mouseup 1
xdotool key ctrl+c
xdotool key --clearmodifiers plus

# A right click on a vertex of the next layer, which no mark holds, finds
# the line that ends there: the menu's first item is Paste GCode.
wait_for 100 settled || fail "no vertex on the next layer"
read -r ax ay <"$work/dots"
pasted() { ! cmp -s "$fixture" "$work/print.gcode"; }
xdotool mousemove "$ax" "$ay" click 3
sleep 0.3
xdotool key Down Return
sleep 0.3
xdotool key ctrl+s
wait_for 100 pasted || fail "nothing saved"
kill "$editor_pid"
wait "$editor_pid" 2>/dev/null || true
editor_pid=
"$check_paste" "$fixture" "$work/print.gcode" || fail "the pasted path is not the copied one"
