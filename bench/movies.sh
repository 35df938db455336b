#!/bin/bash
# Records ten seconds of a moving desktop, 1920 × 1080 at 60 frames a second, and has ffmpeg's fastest software encoder take
# the same pictures at the same bit rate: CPU time and size side by side. At last, an ordinary movie is made of an hour.
#   bench/movies.sh BUILD_FOLDER
set -euo pipefail
bench=$(realpath "${1:?the build folder}")/bin/vellora_movie_bench
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
frames=600
TIMEFORMAT='%U %S'
for scene in still typing scroll film; do
  "$bench" write "$scene" $frames "$folder/$scene.mov" | sed 's/^/Vellora  /'
  cpu=$({ "$bench" raw "$scene" $frames | (
    time ffmpeg -v error -f rawvideo -pix_fmt bgra -video_size 1920x1080 -framerate 60 -i - \
      -c:v libx264 -preset ultrafast -b:v $((1920 * 1080 * 8)) -y "$folder/$scene.mp4"
  ); } 2>&1 | awk '{ print $1 + $2 }')
  bits=$(stat -c %s "$folder/$scene.mp4" | awk -v frames=$frames '{ printf "%.1f", $1 * 8e-6 * 60 / frames }')
  echo "ffmpeg   $scene  CPU $cpu s  $bits Mbit/s"
done
"$bench" finish "$folder/hour.mov"
