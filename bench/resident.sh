#!/bin/sh
# resident.sh [FOLDER]
#
# The running program on a private 3840x2160 desktop with a window manager and a tray: from start to an icon in the tray, memory
# and wake-ups while idle, hot key to overlay, end of drag to a clipboard that can be pasted. FOLDER holds the programs, by
# default build/release/bin. flameshot, where it is installed, is measured beside it in the same run.
# Needs Xvfb, openbox, trayer, dbus-daemon, xdotool, ImageMagick. ROUNDS sets the number of rounds, IDLE the seconds of rest.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
. "$here/common.sh"
programs=${1:-$here/../build/release/bin}
rounds=${ROUNDS:-20} idle=${IDLE:-20}

make_folder

start_display 3840x2160
start_bus
"$here/desktop_scene.sh" "$DISPLAY" 3840 2160 "$folder"
openbox 2> /dev/null &
pids="$pids $!"
trayer --edge top --align right --widthtype request --height 32 2> /dev/null &
pids="$pids $!"
sleep 1

now() { date +%s%N; }
# start NAME COMMAND...: starts a program and waits until the tray has one icon more.
start() {
  name=$1
  shift
  before=$(xwininfo -root -tree | grep -c trayer || true)
  icons() { xwininfo -tree -name panel 2> /dev/null | grep -c '^ *0x' || true; }
  had=$(icons)
  began=$(now)
  "$@" > /dev/null 2>&1 &
  pid=$!
  pids="$pids $pid"
  while [ "$(icons)" -le "$had" ]; do :; done
  echo "$name: start to tray $((($(now) - began) / 1000000)) ms"
}
memory() { awk '/^Pss:/ {print $2}' "/proc/$1/smaps_rollup"; }
switches() { cat /proc/"$1"/task/*/status | awk '/^voluntary_ctxt/ {n += $2} END {print n}'; }
rest() {
  before=$(switches "$2")
  sleep "$idle"
  echo "$1: idle $(memory "$2") kB proportional, $(($(switches "$2") - before)) wake-ups in $idle s"
}

"$programs/vellora" settings set afterCaptureActions copy
for round in 1 2 3 4 5; do
  start vellora "$programs/vellora"
  kill "$pid"
  wait "$pid" || true
done
start vellora "$programs/vellora"
vellora=$pid
sleep 2
rest vellora "$vellora"
echo "3840x2160, $rounds rounds:"
"$programs/hot_key_latency" "$rounds"
sleep 35  # by then the toolkit has ended its worker threads too
rest "vellora after $rounds captures" "$vellora"
kill "$vellora"
if command -v flameshot > /dev/null; then
  start flameshot flameshot
  sleep 2
  rest flameshot "$pid"
fi
