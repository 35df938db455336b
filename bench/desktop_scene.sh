#!/bin/sh
# desktop_scene.sh DISPLAY WIDTH HEIGHT FOLDER
#
# Paints the same desktop on every run onto the root window of DISPLAY: a gradient wallpaper, overlapping windows full of text in
# proportional and fixed fonts, and one photograph-like picture. Scratch files go to FOLDER. Needs ImageMagick 6 and DejaVu.
set -eu
display=$1 width=$2 height=$3 folder=$4
convert=/usr/bin/convert
sans=/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf
mono=/usr/share/fonts/truetype/dejavu/DejaVuSansMono.ttf

# A fixed generator, so that two machines measure the same words.
words() {  # words SEED LINES COLUMNS
  awk -v seed="$1" -v lines="$2" -v columns="$3" 'BEGIN {
    n = split("capture the window and keep every pixel of it while a reader follows the line return value const auto " \
              "stride height of row report total 12,480 3.1416 2026-11-22 north harbour quiet engine measure between " \
              "(void) != nullptr; { } status ready queue [main] error: none / usr share margin paragraph colour", w, " ");
    for (i = 0; i < lines; ++i) {
      text = "";
      while (length(text) < columns * (0.35 + 0.65 * ((seed * 7 + i * 13) % 10) / 10)) {
        seed = (seed * 1103515245 + 12345) % 2147483648;
        text = text w[1 + int(seed / 65536) % n] " ";
      }
      print text;
    }
  }'
}

window() {  # window NAME WIDTH HEIGHT BACKGROUND INK FONT POINTSIZE SEED
  inner=$(($3 - 44))
  words "$8" $((inner * 10 / ($7 * 13))) $(($2 * 17 / ($7 * 10))) > "$folder/$1.txt"
  "$convert" -size "$2x44" xc:'#dfe1e5' -font "$sans" -pointsize 20 -fill '#30343a' -annotate +18+29 "$1" "$folder/$1-bar.png"
  "$convert" -size "$2x$inner" xc:"$4" -font "$6" -pointsize "$7" -fill "$5" \
    -annotate "+16+$(($7 + 14))" "$(cat "$folder/$1.txt")" "$folder/$1-text.png"
  "$convert" "$folder/$1-bar.png" "$folder/$1-text.png" -append -bordercolor '#a0a4aa' -border 1 "$folder/$1.png"
}

window Notes 1500 1180 '#ffffff' '#202124' "$sans" 22 11
window Terminal 1460 1240 '#16181d' '#c8d0d8' "$mono" 20 23
window Mail 1280 900 '#f7f8fa' '#1c2024' "$sans" 18 37
window Code 1300 1000 '#1e1f22' '#d4d7dd' "$mono" 18 41

# Smooth shapes, soft edges and sensor noise: what a photograph is to a compressor.
"$convert" -size 1100x760 -seed 7 plasma:fractal -blur 0x3 -modulate 100,130 \
  -attenuate 0.12 +noise Gaussian -depth 8 "$folder/photo.png"

"$convert" -size "${width}x${height}" gradient:'#24405e-#0d1722' \
  "$folder/Notes.png" -geometry +120+90 -composite \
  "$folder/Terminal.png" -geometry +1540+160 -composite \
  "$folder/Mail.png" -geometry +420+1180 -composite \
  "$folder/Code.png" -geometry +2460+1080 -composite \
  "$folder/photo.png" -geometry +1560+1300 -composite \
  -depth 8 "$folder/desktop.png"
# ImageMagick 6 paints the window and reports a failure all the same; whoever captures can compare with desktop.png.
DISPLAY=$display /usr/bin/display -window root "$folder/desktop.png" || true
