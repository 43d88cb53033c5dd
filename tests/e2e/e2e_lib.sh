# What the end-to-end scripts share, sourced at their top: a real X server
# of their own, a scratch folder $work that goes at the end together with
# the editor started as $editor_pid, fail, wait_for and open_print.
set -eu
# Everything here talks to the X server below, whatever the caller's platform.
unset QT_QPA_PLATFORM

if [ -z "${KORVEXED_E2E_SERVER:-}" ]; then
  KORVEXED_E2E_SERVER=1 exec xvfb-run -a -s "-screen 0 1280x1024x24" sh "$0" "$@"
fi

work=$(mktemp -d)
# What Qt and the editor remember in the user's settings (the choosers'
# folders, the recent files) stays in it too.
export XDG_CONFIG_HOME="$work/config"
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
# Opens a copy of the print $2, $work/print.gcode, in the editor $1 and
# gives its window ($window) the keyboard.
open_print() {
  cp "$2" "$work/print.gcode"
  "$1" "$work/print.gcode" >"$work/editor.log" 2>&1 &
  editor_pid=$!
  window=$(timeout 20 xdotool search --sync --onlyvisible --name 'print\.gcode') || fail "no window"
  window=$(echo "$window" | head -n 1)
  timeout 10 xdotool windowfocus --sync "$window" || fail "the window takes no focus"
}
