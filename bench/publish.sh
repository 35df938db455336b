#!/bin/sh
# publish.sh [--minutes N] [FOLDER]
#
# Publishes 60 s of 6 Mbit/s H.264 and AAC to an nginx with its RTMP module on this machine, which keeps nothing, as fast as that
# takes it: `vellora publish` and ffmpeg's stream copy in turn, side by side in one run. Prints wall time, CPU time (user and
# system) and peak memory of every round, their medians and the ratio. With --minutes N it publishes in real time, over and over,
# for N minutes instead, and shows the memory Vellora holds: flat, or not. FOLDER holds the programs, by default
# build/release/bin. Needs nginx-light, libnginx-mod-rtmp, ffmpeg, curl and python3. ROUNDS sets the number of rounds.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
. "$here/common.sh"
minutes=0
if [ "${1:-}" = --minutes ]; then
  minutes=$2
  shift 2
fi
programs=${1:-$here/../build/release/bin}
rounds=${ROUNDS:-5}

need nginx ffmpeg curl python3 "$programs/vellora"

make_folder

# Made once; noise keeps the encoder at its rate.
file=$here/../build/bench/publish-60s.mp4
if [ ! -e "$file" ]; then
  mkdir -p "$here/../build/bench"
  ffmpeg -nostdin -v error -f lavfi -i "testsrc2=s=1280x720:r=30,noise=alls=12:allf=t" -f lavfi -i "sine=f=440:r=48000" -t 60 \
    -c:v libx264 -preset ultrafast -g 60 -b:v 6M -minrate 6M -maxrate 6M -bufsize 6M -pix_fmt yuv420p -c:a aac -b:a 128k -ac 2 \
    -y "$file.part.mp4"
  mv "$file.part.mp4" "$file"
fi

port=$(python3 -c 'import socket; s = socket.socket(); s.bind(("127.0.0.1", 0)); print(s.getsockname()[1])')
cat > "$folder/nginx.conf" << END
load_module /usr/lib/nginx/modules/ngx_rtmp_module.so;
daemon off; master_process off; pid nginx.pid; error_log error.log;
events { worker_connections 64; }
rtmp { access_log off; server { listen 127.0.0.1:$port; chunk_size 4096; application live { live on; record off; } } }
http {
  access_log off;
  client_body_temp_path body; proxy_temp_path proxy; fastcgi_temp_path fastcgi; scgi_temp_path scgi; uwsgi_temp_path uwsgi;
  server { listen unix:$folder/http.sock; location /stat { rtmp_stat all; } }
}
END
nginx -p "$folder" -c "$folder/nginx.conf" -e "$folder/boot.log" &
pids="$pids $!"
until curl -sf --unix-socket "$folder/http.sock" http://nginx/stat > /dev/null; do
  kill -0 "$!" 2> /dev/null || { cat "$folder/boot.log" >&2; exit 1; }
  sleep 0.05
done

HOME=$folder XDG_RUNTIME_DIR=$folder
export HOME XDG_RUNTIME_DIR
url=rtmp://127.0.0.1:$port/live
echo "$(stat -c %s "$file") bytes, $(nproc) processors"

if [ "$minutes" != 0 ]; then
  "$programs/vellora" publish --loop "$file" "$url/long" > "$folder/summary" 2> "$folder/errors" &
  publisher=$!
  pids="$pids $publisher"
  second=0
  while [ "$second" -lt $((minutes * 60)) ]; do
    sleep 5
    second=$((second + 5))
    awk -v second="$second" '/^VmRSS/ {print second, $2}' "/proc/$publisher/status" >> "$folder/memory" ||
      { cat "$folder/errors" >&2; exit 1; }
  done
  kill "$publisher"
  wait "$publisher"
  # The first half minute fills the queues and the allocator.
  awk '$1 <= 30 {next}
       {if (!first) first = $2; last = $2; if (!low || $2 < low) low = $2; if ($2 > high) high = $2}
       END {printf "memory in kB: %d after 35 s, %d at the end, between %d and %d\n", first, last, low, high}' "$folder/memory"
  cat "$folder/summary"
  exit
fi

python3 - "$rounds" "$folder" \
  "$programs/vellora publish --as-fast-as-possible $file $url/vellora" \
  "ffmpeg -nostdin -v error -i $file -c copy -f flv $url/ffmpeg" << 'END'
import os, statistics, sys, time

rounds, folder, commands = int(sys.argv[1]), sys.argv[2], [command.split(" ") for command in sys.argv[3:]]
names = ["vellora", "ffmpeg"]
measured = {name: [] for name in names}

def run(command):
    began = time.monotonic()
    pid = os.fork()
    if pid == 0:
        output = os.open(folder + "/output", os.O_WRONLY | os.O_CREAT | os.O_TRUNC)
        os.dup2(output, 1)
        os.execvp(command[0], command)
    _, status, usage = os.wait4(pid, 0)
    if status != 0:
        sys.exit("publish.sh: %s failed" % command[0])
    return time.monotonic() - began, usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024

print("%-8s %9s %9s %10s" % ("", "wall s", "CPU s", "peak MB"))
show = lambda name, values: print("%-8s %9.3f %9.3f %10.1f" % (name, *values))
for number in range(rounds + 1):
    for name, command in zip(names, commands):
        values = run(command)
        if number > 0:  # the first round fills the caches
            measured[name].append(values)
            show(name, values)
medians = {name: [statistics.median(column) for column in zip(*measured[name])] for name in names}
print("medians")
for name in names:
    show(name, medians[name])
print("%-8s %9.2f %9.2f %10.2f" % ("ratio", *(a / b for a, b in zip(medians["vellora"], medians["ffmpeg"]))))
END
