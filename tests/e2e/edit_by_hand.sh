#!/bin/sh
# The editor used as a person uses it, under a real X server of its own:
# open a sliced print, which shows its first printed layer fitted, shake
# the pointer on a click (which moves nothing), drag one vertex with the
# pointer, delete another with Del, save with Ctrl+S. Then the saved file
# must hold exactly those two edits, keep the extrusion per millimetre of
# every move, and pass the consistency check.
# usage: edit_by_hand.sh KORVEXED KORVEXED_CLI SCREEN_VERTICES CHECK_DOCUMENT FIXTURE
. "$(dirname "$0")/e2e_lib.sh"
editor=$1 cli=$2 screen_vertices=$3 check_document=$4 fixture=$5
layer=1          # the first printed layer, current after the load
drag_x=40 drag_y=30

open_print "$editor" "$fixture"

# Two lone vertex dots, as they show on the screen: A to drag, and B, away
# from A's old and new place, to delete.
two_dots() {
  "$screen_vertices" --apart 6 >"$work/dots" 2>/dev/null || return 1
  awk -v dx=$drag_x -v dy=$drag_y '
    NR == 1 { ax = $1; ay = $2; next }
    (($1 - ax) ^ 2 + ($2 - ay) ^ 2) > 900 && (($1 - ax - dx) ^ 2 + ($2 - ay - dy) ^ 2) > 900 {
      print ax, ay, $1, $2; found = 1; exit
    }
    END { exit !found }' "$work/dots" >"$work/pick"
}
# The same two twice in a row: the screen has settled after the load.
settled() {
  two_dots && cp "$work/pick" "$work/pick.first" && two_dots && cmp -s "$work/pick" "$work/pick.first"
}
wait_for 100 settled || fail "no two lone vertices on the screen"
read -r ax ay bx by <"$work/pick"

# A click marks A; a hand's shake of 2 pixels on it is still a click and
# moves nothing; a press on the marked vertex drags it.
xdotool mousemove "$ax" "$ay" click 1
xdotool mousemove "$ax" "$ay" mousedown 1
xdotool mousemove "$((ax + 2))" "$((ay + 1))" mouseup 1
xdotool mousemove "$ax" "$ay" mousedown 1
xdotool mousemove "$((ax + drag_x))" "$((ay + drag_y))" mouseup 1
# A click marks B alone; Del deletes it; Ctrl+S saves over the file.
xdotool mousemove "$bx" "$by" click 1
xdotool key Delete
xdotool key ctrl+s
saved() { ! cmp -s "$fixture" "$work/print.gcode"; }
# The file is replaced in one step: once it differs, it is whole.
wait_for 100 saved || fail "nothing saved"
kill "$editor_pid"
wait "$editor_pid" 2>/dev/null || true
editor_pid=

"$cli" dump "$fixture" -o "$work/before.dump"
"$cli" dump "$work/print.gcode" -o "$work/after.dump"
"$check_document" "$work/print.gcode" || fail "the saved document is not consistent"

# Of the layer's moves, one is gone and one moved by the drag (right and
# down on the screen: +X, -Y, in the ratio 40 : 30); the other layers' moves
# are where they were; every extruding move keeps its extrusion per
# millimetre.
awk -v edited=$layer -v dx=$drag_x -v dy=$drag_y '
  function abs(v) { return v < 0 ? -v : v }
  FNR == 1 { side++; layers[side] = 0 }
  $1 == "layer" { current = $2; layers[side]++; next }
  # Text lines are left out: a file saved with CR LF ends reads its empty
  # lines as none.
  $1 ~ /^[0-9]+$/ && $2 != "text" {
    j = ++n[side, current]
    kind[side, current, j] = $2
    for (f = 3; f <= NF; f++) { split($f, kv, "="); v[side, current, j, kv[1]] = kv[2] }
  }
  function same_place(l, a, b) {
    return kind[1, l, a] == kind[2, l, b] && abs(v[1, l, a, "x"] - v[2, l, b, "x"]) < 1e-9 &&
           abs(v[1, l, a, "y"] - v[2, l, b, "y"]) < 1e-9
  }
  function rate_kept(l, a, b,   len, len0) {
    if (kind[2, l, b] != "G1" || v[2, l, b, "e_delta"] <= 0 || v[2, l, b, "d_delta"] <= 1e-10) return 1
    len = sqrt(v[2, l, b, "d_delta"]); len0 = sqrt(v[1, l, a, "d_delta"])
    return abs(v[2, l, b, "e_delta"] - v[1, l, a, "e_delta"] / len0 * len) <= 5e-5 + 1e-4 * v[2, l, b, "e_delta"]
  }
  # Record b of the saved layer l is record a of the loaded one.
  function before(l, b) { return l == edited && b >= deleted ? b + 1 : b }
  END {
    if (layers[1] != layers[2]) { print "layers " layers[1] " -> " layers[2]; exit 1 }
    if (n[2, edited] != n[1, edited] - 1) { print "moves " n[1, edited] " -> " n[2, edited]; exit 1 }
    for (deleted = 1; deleted <= n[1, edited]; deleted++) {
      moved = 0
      for (b = 1; b <= n[2, edited]; b++) if (!same_place(edited, before(edited, b), b)) { moved++; moved_at = b }
      if (moved == 1) break
    }
    if (moved != 1) { print "not one move moved and one deleted"; exit 1 }
    a = before(edited, moved_at)
    mx = v[2, edited, moved_at, "x"] - v[1, edited, a, "x"]; my = v[2, edited, moved_at, "y"] - v[1, edited, a, "y"]
    if (!(mx > 0 && my < 0 && abs(mx * dy + my * dx) <= 1e-3 * mx * dx)) { print "moved by " mx ", " my; exit 1 }
    for (l = 0; l < layers[2]; l++) {
      if (l != edited && n[1, l] != n[2, l]) { print "layer " l " changed"; exit 1 }
      for (b = 1; b <= n[2, l]; b++) {
        if (l != edited && !same_place(l, b, b)) { print "layer " l " move " b - 1 " moved"; exit 1 }
        if (!rate_kept(l, before(l, b), b)) { print "extrusion per mm changed: layer " l " move " b - 1; exit 1 }
      }
    }
    print "move " deleted - 1 " deleted, move " a - 1 " moved by " mx ", " my
  }' "$work/before.dump" "$work/after.dump" || fail "the saved file does not show the two edits"
