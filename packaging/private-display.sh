# A private virtual display with a small desktop on it; sourced by ./run. Everything started here is ended by its process id.

private_processes=()

start_private_display() {
  private_folder=$(mktemp -d)
  chmod 700 "$private_folder"
  mkfifo "$private_folder/number"
  Xvfb -displayfd 3 -screen 0 1920x1080x24 -nolisten tcp -noreset 3>"$private_folder/number" >/dev/null 2>&1 &
  private_processes+=($!)
  local number
  read -r -t 20 number <"$private_folder/number" || fail "the private display did not start"
  export DISPLAY=:$number XDG_RUNTIME_DIR=$private_folder DBUS_SESSION_BUS_ADDRESS=disabled:
  unset WAYLAND_DISPLAY
  draw_sample_desktop
}

# A wallpaper and a few windows, so that there is something to look at.
draw_sample_desktop() {
  local sans=/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf
  openbox >/dev/null 2>&1 &
  private_processes+=($!)
  convert -size 1920x1080 -define gradient:angle=135 gradient:'#2b5876-#4e4376' \
    -fill '#ffffff18' -draw 'circle 1500,260 1500,620' -draw 'circle 420,900 420,1240' \
    -fill '#ffffff10' -draw 'circle 1130,820 1130,1150' "$private_folder/wallpaper.png"
  display -window root "$private_folder/wallpaper.png" >/dev/null 2>&1 || true  # its exit code says nothing
  convert -size 820x520 xc:'#fbfbfd' -font "$sans" -fill '#1c2024' -pointsize 34 -annotate +48+84 'Quarterly review' \
    -fill '#60646c' -pointsize 18 -annotate +48+124 'Visitors by month, compared with the year before' \
    -fill '#2f6fed' -draw 'roundrectangle 60,330 140,460 6,6' -draw 'roundrectangle 200,290 280,460 6,6' \
    -draw 'roundrectangle 340,240 420,460 6,6' -draw 'roundrectangle 480,270 560,460 6,6' \
    -fill '#f76b15' -draw 'roundrectangle 620,180 700,460 6,6' \
    -stroke '#e3e5e9' -strokewidth 2 -draw 'line 48,461 760,461' "$private_folder/Review.png"
  display -title 'Quarterly review' -geometry 820x520+180+190 "$private_folder/Review.png" >/dev/null 2>&1 &
  private_processes+=($!)
  xclock -geometry 300x300+1420+150 -update 1 >/dev/null 2>&1 &
  private_processes+=($!)
  xcalc -geometry 320x420+1180+500 >/dev/null 2>&1 &
  private_processes+=($!)
  wait_for_windows 3
}

# Waits until the window manager has taken in COUNT windows, and for a breath in which they draw themselves.
wait_for_windows() {
  local tries
  for ((tries = 0; tries < 100; ++tries)); do
    [ "$(xprop -root _NET_CLIENT_LIST 2>/dev/null | grep -o 0x | wc -l)" -ge "$1" ] && break
    sleep 0.05
  done
  sleep 0.4
}

end_private_display() {
  local index
  for ((index = ${#private_processes[@]} - 1; index >= 0; --index)); do
    kill "${private_processes[index]}" 2>/dev/null || true
    wait "${private_processes[index]}" 2>/dev/null || true
  done
  rm -rf "${private_folder:-}"
}
