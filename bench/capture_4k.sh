#!/bin/sh
# capture_4k.sh [VELLORA]
#
# Times whole captures of one 3840x2160 desktop, side by side in one run: scrot, maim and Vellora (by default the release
# build beside this folder; left out when it is not there). Each program grabs the root window of a private Xvfb, encodes a
# PNG and writes it to a RAM disk. Prints times and file sizes, and checks that every picture holds the same pixels.
# Needs Xvfb, xdpyinfo, ImageMagick, hyperfine, scrot and maim. RUNS and WARMUP set the number of runs.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
vellora=${1:-$here/../build/release/bin/vellora}
runs=${RUNS:-20} warmup=${WARMUP:-3}

for tool in Xvfb xdpyinfo hyperfine scrot maim; do
  command -v "$tool" > /dev/null || { echo "capture_4k.sh: $tool is not installed" >&2; exit 1; }
done

base=/dev/shm
[ -w "$base" ] || base=${TMPDIR:-/tmp}
folder=$(mktemp -d "$base/vellora-bench.XXXXXX")
server=
finish() {
  [ -z "$server" ] || kill "$server" 2> /dev/null || true
  rm -rf "$folder"
}
trap finish EXIT
trap 'exit 1' INT TERM

# The server picks a free display itself and says which. Without -noreset it would drop the scene with its last client.
mkfifo "$folder/display"
Xvfb -displayfd 3 -screen 0 3840x2160x24 -nolisten tcp -noreset 3> "$folder/display" 2> "$folder/xvfb.log" &
server=$!
read -r number < "$folder/display"
DISPLAY=:$number
export DISPLAY
xdpyinfo > /dev/null

"$here/desktop_scene.sh" "$DISPLAY" 3840 2160 "$folder"

set -- --command-name scrot "scrot --overwrite $folder/scrot.png" --command-name maim "maim --hidecursor $folder/maim.png"
if [ -x "$vellora" ]; then
  # A profile of its own: nobody's settings, nobody's history.
  HOME=$folder/home XDG_CONFIG_HOME=$folder/home/config XDG_DATA_HOME=$folder/home/data XDG_RUNTIME_DIR=$folder/run
  export HOME XDG_CONFIG_HOME XDG_DATA_HOME XDG_RUNTIME_DIR
  mkdir -p "$HOME" "$XDG_RUNTIME_DIR"
  chmod 700 "$XDG_RUNTIME_DIR"
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
