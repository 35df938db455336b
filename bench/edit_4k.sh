#!/bin/sh
# edit_4k.sh [FOLDER]
#
# Annotators side by side in one run, on a private 3840x2160 desktop with a window manager: from opening a 4K picture file to
# seeing it, memory with it open, and saving it. Vellora twice: as a program of its own, and in the one already running. FOLDER
# holds the programs, by default build/release/bin. Beside it Debian's ksnip, where it is installed; its flameshot opens no files.
# Needs Xvfb, openbox, dbus-daemon, xdotool, ImageMagick. ROUNDS sets the number of rounds.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
. "$here/common.sh"
programs=$(cd "${1:-$here/../build/release/bin}" && pwd)
rounds=${ROUNDS:-7}

make_folder

start_display 3840x2160
start_bus
"$here/desktop_scene.sh" "$DISPLAY" 3840 2160 "$folder"
openbox 2> /dev/null &
pids="$pids $!"
sleep 1

# A band of its own colour from top to bottom: whatever part of the picture a window shows, some of it is there.
patch=fe01dc
picture=$folder/picture.png
/usr/bin/convert "$folder/desktop.png" -fill "#$patch" -draw 'rectangle 600,0 1000,2159' "$picture"

now() { date +%s%N; }
median() { sort -n | awk '{v[NR] = $1} END {print v[int((NR + 1) / 2)]}'; }
# The proportional memory of a process and everything it started, in kB.
memory() {
  total=0
  for process in $1 $(pgrep -P "$1" || true); do
    own=$(awk '/^Pss:/ {print $2}' "/proc/$process/smaps_rollup" 2> /dev/null || echo 0)
    total=$((total + own))
  done
  echo "$total"
}
# written BEGAN GLOB: milliseconds from BEGAN until a file newer than $folder/mark holds a whole PNG.
written() {
  while :; do
    for file in $2; do
      [ "$file" -nt "$folder/mark" ] && tail -c 12 "$file" | grep -aq IEND && { echo $((($(now) - $1) / 1000000)); return; }
    done
  done
}
# A stroke over the picture, so that there is something to save.
stroke() {
  xdotool mousemove 1700 1000 mousedown 1 mousemove 1760 1040 mousemove 1800 1060 mouseup 1
  sleep 0.3
}
report() {
  printf '%-18s opened %6s ms   memory %7s kB   saved %5s ms\n' "$1" "$(median < "$folder/opened")" \
    "$(median < "$folder/held")" "$(median < "$folder/saved")"
}
measure() {  # measure NAME SAVED_FILES COMMAND...
  name=$1 saved=$2
  shift 2
  : > "$folder/opened"; : > "$folder/held"; : > "$folder/saved"
  for _ in $(seq "$rounds"); do
    shown=$("$programs/time_to_picture" "$patch" "$@")
    echo "${shown% *}" >> "$folder/opened"
    process=${resident:-${shown#* }}
    sleep 1.5
    memory "$process" >> "$folder/held"
    stroke
    touch "$folder/mark"
    sleep 0.05
    began=$(now)
    xdotool key --clearmodifiers ctrl+s
    written "$began" "$saved" >> "$folder/saved"
    sleep 0.5
    if [ -n "$resident" ]; then xdotool key --clearmodifiers ctrl+w; else kill "$process" 2> /dev/null || true; fi
    sleep 1
  done
  report "$name"
}

resident=
measure vellora "$HOME/Desktop/*.png" "$programs/vellora" edit "$picture"
"$programs/vellora" > /dev/null 2>&1 &
resident=$!
pids="$pids $resident"
sleep 2
measure 'vellora, running' "$HOME/Desktop/*.png" "$programs/vellora" edit "$picture"
# A history entry of three such pieces, taken out of the history and put back by each round.
session=$HOME/.local/share/Vellora/Sessions/20260101-000000-00000000
mkdir -p "$session"
for piece in 0 1 2; do cp "$picture" "$session/piece-$piece.png"; done
record() { printf '{"file":"piece-%s.png","scale":1,"origin":[%s,0],"pointSize":[3840,2160]}' "$1" "$2"; }
printf '{"version":1,"capturedAt":1,"savedAt":900000000,"pixelWidth":11544,"pixelHeight":2160,"backdrop":{},"pieces":[%s,%s,%s],"annotations":[]}' \
  "$(record 0 0)" "$(record 1 3852)" "$(record 2 7704)" > "$session/session.json"
: > "$folder/opened"
for _ in $(seq "$rounds"); do
  shown=$("$programs/time_to_picture" "$patch" "$programs/vellora" history reopen 1)
  echo "${shown% *}" >> "$folder/opened"
  sleep 1
  xdotool mousemove 1700 1000 click 1 key --clearmodifiers ctrl+w
  sleep 1.5
done
printf '%-18s opened %6s ms   three such pieces from the history\n' 'vellora, running' "$(median < "$folder/opened")"
kill "$resident" 2> /dev/null || true
resident=
if command -v ksnip > /dev/null; then
  # It saves over the file it opened.
  cp "$picture" "$folder/copy.png"
  measure ksnip "$folder/copy.png" ksnip "$folder/copy.png"
fi
