#!/usr/bin/env bash
# installed_check.sh BUILD_FOLDER
# Installs the program into an empty place and uses it there: its parts find each other outside the build, the desktop's own
# tools accept its files, and a copy can be pasted after the program that made it has ended.
set -euo pipefail
build=$1
place=$(mktemp -d)
display_process=
end() {
  [ -z "$display_process" ] || kill "$display_process" 2>/dev/null || true
  rm -rf "$place"
}
trap end EXIT
fault() { echo "fault: $*" >&2; exit 1; }

cmake --install "$build" --prefix "$place/usr" >/dev/null
share=$place/usr/share
desktop-file-validate "$share"/applications/*.desktop "$share"/vellora/autostart/*.desktop
appstreamcli validate --no-net "$share"/metainfo/*.xml >"$place/appstream" || fault "$(cat "$place/appstream")"
grep -q '^Name=dev.orlo.Vellora$' "$share/dbus-1/services/dev.orlo.Vellora.service" || fault "no service to start by name"
bash -n "$share/bash-completion/completions/vellora"
[ -s "$share/man/man1/vellora.1" ] && [ -s "$share/icons/hicolor/scalable/apps/dev.orlo.Vellora.svg" ] || fault "a file is missing"

mkfifo "$place/number"
Xvfb -displayfd 3 -screen 0 640x480x24 -nolisten tcp -noreset 3>"$place/number" >/dev/null 2>&1 &
display_process=$!
read -r -t 20 number <"$place/number"
mkdir -m 700 "$place/run"
export DISPLAY=:$number HOME=$place XDG_RUNTIME_DIR=$place/run DBUS_SESSION_BUS_ADDRESS=disabled:
unset XDG_CONFIG_HOME XDG_DATA_HOME WAYLAND_DISPLAY
"$place/usr/bin/vellora" capture fullscreen --copy --save >"$place/saved"
xclip -selection clipboard -o -t image/png >"$place/pasted.png"
cmp "$place/pasted.png" "$(head -n 1 "$place/saved")" || fault "what is pasted is not what was saved"
[ "$(identify -format '%wx%h' "$place/pasted.png")" = 640x480 ] || fault "the capture has another size"
"$place/usr/bin/vellora" publish "$place/none.mp4" rtmp://127.0.0.1/live/none 2>"$place/said" && fault "published nothing"
grep -q 'none.mp4' "$place/said" || fault "publishing: $(cat "$place/said")"
