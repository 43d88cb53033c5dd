# What the tests of the editor used by hand share, sourced after they set
# `fixture`, `editor` and `layer`: a real X server of their own, a scratch
# folder, and the editor opened on a copy of the fixture at that layer,
# fitted. Their own arguments are in "$@" when this is sourced.
set -eu
# Everything here talks to the X server below, whatever the caller's platform.
unset QT_QPA_PLATFORM

work=$(mktemp -d)
editor_pid=
finish() {
  [ -n "$editor_pid" ] && kill "$editor_pid" 2>/dev/null
  rm -rf "$work"
}
trap finish EXIT
fail() {
  echo "$(basename "$0" .sh): $*" >&2
  exit 1
}
# Runs the command until it succeeds, at most $1 times, a tenth of a second
# apart.
wait_for() {
  tries=$1
  shift
  until "$@"; do
    tries=$((tries - 1))
    [ "$tries" -gt 0 ] || return 1
    sleep 0.1
  done
}

cp "$fixture" "$work/print.gcode"
"$editor" "$work/print.gcode" >"$work/editor.log" 2>&1 &
editor_pid=$!
window=$(timeout 20 xdotool search --sync --onlyvisible --name 'print\.gcode') || fail "no window"
window=$(echo "$window" | head -n 1)
timeout 10 xdotool windowfocus --sync "$window" || fail "the window takes no focus"

# The keyboard reaches the layer and fits it.
i=0
while [ $i -lt "$layer" ]; do
  xdotool key --clearmodifiers plus
  i=$((i + 1))
done
xdotool key F4

# Waits until the file the editor saves differs from $1 (it is replaced in
# one step: once it differs, it is whole).
await_save() {
  differs() { ! cmp -s "$1" "$work/print.gcode"; }
  wait_for 100 differs "$1" || fail "nothing saved"
}
# The same, then ends the editor.
await_last_save() {
  await_save "$1"
  kill "$editor_pid"
  wait "$editor_pid" 2>/dev/null || true
  editor_pid=
}
