#!/bin/sh
# capture_4k.sh [VELLORA]
#
# Times whole captures of one 3840x2160 desktop, side by side in one run: scrot, maim and Vellora (by default the release
# build beside this folder; left out when it is not there). Each program grabs the root window of a private Xvfb, encodes a
# PNG and writes it to a RAM disk. Prints times and file sizes, and checks that every picture holds the same pixels.
# Needs Xvfb, xdpyinfo, ImageMagick, hyperfine, scrot and maim. RUNS and WARMUP set the number of runs.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
. "$here/common.sh"
vellora=${1:-$here/../build/release/bin/vellora}
runs=${RUNS:-20} warmup=${WARMUP:-3}

need Xvfb xdpyinfo hyperfine scrot maim
make_folder
start_display 3840x2160
xdpyinfo > /dev/null

"$here/desktop_scene.sh" "$DISPLAY" 3840 2160 "$folder"

set -- --command-name scrot "scrot --overwrite $folder/scrot.png" --command-name maim "maim --hidecursor $folder/maim.png"
if [ -x "$vellora" ]; then
  set -- "$@" --command-name vellora "$vellora capture fullscreen --output $folder/vellora.png"
else
  echo "capture_4k.sh: no program at $vellora, measuring the others only" >&2
fi
hyperfine --shell=none --warmup "$warmup" --runs "$runs" "$@"

echo "File sizes in bytes:"
for name in scrot maim vellora; do
  [ -e "$folder/$name.png" ] || continue
  different=$(/usr/bin/compare -metric AE "$folder/desktop.png" "$folder/$name.png" null: 2>&1 || true)
  printf '  %-8s %9d   pixels unlike the desktop: %s\n' "$name" "$(wc -c < "$folder/$name.png")" "$different"
done
