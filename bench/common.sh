# What the benchmarks share; they source it.

# need TOOL...: ends the benchmark where one of them is missing.
need() {
  for tool in "$@"; do
    command -v "$tool" > /dev/null || { echo "${0##*/}: there is no $tool" >&2; exit 1; }
  done
}

# make_folder [BASE]: sets $folder, by default in memory. At the end it goes, and every process named in $pids.
make_folder() {
  base=${1:-/dev/shm}
  [ -w "$base" ] || base=${TMPDIR:-/tmp}
  folder=$(mktemp -d "$base/vellora-bench.XXXXXX")
  pids=
  trap finish EXIT
  trap 'exit 1' INT TERM
}
finish() {
  for pid in $pids; do kill "$pid" 2> /dev/null || true; done
  rm -rf "$folder"
}

# start_home: nobody's settings, nobody's history, no message bus.
start_home() {
  HOME=$folder/home XDG_RUNTIME_DIR=$folder/run DBUS_SESSION_BUS_ADDRESS=disabled:
  export HOME XDG_RUNTIME_DIR DBUS_SESSION_BUS_ADDRESS
  unset XDG_CONFIG_HOME XDG_DATA_HOME WAYLAND_DISPLAY
  mkdir -p "$HOME/Desktop" "$XDG_RUNTIME_DIR"
  chmod 700 "$XDG_RUNTIME_DIR"
}

# start_display WIDTHxHEIGHT: a private display, and a home. The server picks a free number itself and says which. Without
# -noreset it would drop the scene with its last client.
start_display() {
  mkfifo "$folder/display"
  Xvfb -displayfd 3 -screen 0 "$1x24" -nolisten tcp -noreset 3> "$folder/display" 2> "$folder/xvfb.log" &
  pids="$pids $!"
  read -r number < "$folder/display"
  DISPLAY=:$number
  export DISPLAY
  start_home
}

# start_bus: a message bus of the session.
start_bus() {
  dbus-daemon --session --nofork --print-address=3 3> "$folder/bus" &
  pids="$pids $!"
  while [ ! -s "$folder/bus" ]; do sleep 0.01; done
  DBUS_SESSION_BUS_ADDRESS=$(cat "$folder/bus")
  export DBUS_SESSION_BUS_ADDRESS
}
