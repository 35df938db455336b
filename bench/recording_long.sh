#!/bin/sh
# recording_long.sh [SECONDS]
#
# Records for SECONDS, by default 1800, all that can be recorded: a private 1920x1080 display on which moving_scene paints
# RATE (33) pictures a second, a microphone whose clock is PPM (300) millionths too fast, the system's sound, the test
# camera and keys. The microphone hears two clicks a second whose true moments are known, and the scene tells when each of
# its pictures came onto the screen, so that both clocks of the movie can be compared with the host's. Prints by how much
# sound comes after picture at the start, after ten minutes and at the end; the recorder's proportional memory after one
# minute and at the end, sampled every 10 s; how long it takes from SIGINT to its exit; what the recording takes on the
# disk, pictures missed, and what its report says. FOLDER holds the programs, by default build/release/bin.
# Needs Xvfb, pulseaudio, ffmpeg, xdotool and python3, and some gigabytes where temporary files go.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
. "$here/common.sh"
programs=${FOLDER:-$here/../build/release/bin}

need Xvfb pulseaudio pactl ffmpeg ffprobe xdotool python3 "$programs/vellora" "$programs/moving_scene"

make_folder "${TMPDIR:-/tmp}"

start_display 1920x1080
PULSE_SERVER=unix:$folder/native PULSE_COOKIE=$folder/cookie PULSE_RUNTIME_PATH=$folder PULSE_STATE_PATH=$folder
VELLORA_TEST_CAMERA=1
export PULSE_SERVER PULSE_COOKIE PULSE_RUNTIME_PATH PULSE_STATE_PATH VELLORA_TEST_CAMERA

cat > "$folder/server.pa" << END_OF_CONFIGURATION
load-module module-native-protocol-unix auth-anonymous=1 socket=$folder/native
load-module module-null-sink sink_name=speakers rate=48000 channels=2
load-module module-pipe-source source_name=mic file=$folder/mic.fifo format=s16le rate=48000 channels=1
set-default-sink speakers
set-default-source mic
END_OF_CONFIGURATION
pulseaudio -n -F "$folder/server.pa" --daemonize=no --exit-idle-time=-1 --use-pid-file=no 2> /dev/null &
pids="$pids $!"
tries=100
until pactl info > /dev/null 2>&1; do
  tries=$((tries - 1))
  [ $tries -gt 0 ] || { echo "recording_long.sh: pulseaudio does not answer" >&2; exit 1; }
  sleep 0.1
done

PYTHONDONTWRITEBYTECODE=1 PYTHONPATH=$here python3 - "$folder" "$programs" "${1:-1800}" "${RATE:-33}" "${PPM:-300}" \
  << 'END_OF_PROGRAM'
import array, bisect, glob, json, os, signal, statistics, subprocess, sys, tempfile, threading, time
from identify_frames import BLOCKS, FFMPEG, excerpt, output_of, times_in

folder, programs = sys.argv[1:3]
seconds, rate, ppm = (float(argument) for argument in sys.argv[3:6])
SAMPLES = 48000
BLOCK = SAMPLES // 200
CLICK = 24
WINDOW = 12.0  # seconds looked at in each place


class Microphone(threading.Thread):
    """Writes blocks of 5 ms of its own clock, which is due when the last sample of a block was heard."""

    def __init__(self):
        super().__init__(daemon=True)
        self.clicks = []
        self.latest = 0.0  # by how much a block with a click was written too late
        self.pipe = os.open(folder + "/mic.fifo", os.O_RDWR | os.O_NONBLOCK)

    def run(self):
        silence = bytes(2 * BLOCK)
        click = bytes(2 * (BLOCK - CLICK)) + array.array("h", [24000] * CLICK).tobytes()
        pace = SAMPLES * (1 + ppm * 1e-6)
        start, block = time.monotonic(), 0
        while True:
            block += 1
            due = start + block * BLOCK / pace
            time.sleep(max(0, due - time.monotonic()))
            is_click = block % 100 == 0
            try:
                os.write(self.pipe, click if is_click else silence)
            except BlockingIOError:  # nobody listens any more
                return
            if is_click:
                self.clicks.append(due - CLICK / pace)
                self.latest = max(self.latest, time.monotonic() - due)


def memory_of(pid):
    with open(f"/proc/{pid}/smaps_rollup") as lines:
        return next(int(line.split()[1]) / 1024 for line in lines if line.startswith("Pss:"))


def clicks_in(movie, start):
    """The seconds of the movie at which clicks begin: where half their height is reached, as the coder smears them."""
    with tempfile.NamedTemporaryFile() as listing:
        piece = ["-ss", str(start), "-t", str(WINDOW), "-copyts", "-i", movie]
        sound = ["-map", "0:a:0", "-ac", "1"]
        data = output_of(FFMPEG + piece + sound + ["-f", "f32le", "-"] +
                         sound + ["-c:a", "pcm_f32le", "-y", "-f", "framecrc", listing.name])
        blocks = times_in(listing.name)
    samples = array.array("f", data)
    begin = blocks[0][0]
    for index, (moment, _) in enumerate(blocks):
        expected = begin + sum(size for _, size in blocks[:index]) / 4 / SAMPLES
        if abs(moment - expected) > 1e-3:
            sys.exit(f"recording_long.sh: the sound breaks off at {moment:.3f} s")
    clicks, at = [], 0
    while at + 480 < len(samples):
        if abs(samples[at]) < 0.15:
            at += 1
            continue
        height = max(samples[at:at + 480])
        peak = next(i for i in range(at, at + 480) if samples[i] > height / 2)
        clicks.append(begin + peak / SAMPLES)
        at += SAMPLES // 10
    return clicks


def pictures_at(movie, start):
    """The second of the movie and the number of each frame that is not torn; the movie tells only their lowest bits."""
    turn = 1 << BLOCKS
    found = []
    for moment, top, bottom in excerpt(movie, start, WINDOW):
        if top == bottom:
            guess = bisect.bisect(shown, beginning + moment)
            found.append((moment, top + round((guess - top) / turn) * turn))
    return found


def offsets_at(movie, start, pictures):
    """By how many seconds each click comes after the picture."""
    picture = statistics.median(moment - shown[number] for moment, number in pictures)
    offsets = []
    for heard in clicks_in(movie, start):
        made = min(clicks, key=lambda click: abs(heard - click - picture))
        offsets.append(heard - made - picture)
    return offsets


scene = subprocess.Popen([programs + "/moving_scene", "--rate", str(rate), "--times", folder + "/times"],
                         stdout=subprocess.PIPE, text=True)
if scene.stdout.readline() != "ready\n":
    sys.exit("recording_long.sh: the scene was not painted")
microphone = Microphone()
microphone.start()
output = open(folder + "/output", "w+")
recorder = subprocess.Popen([programs + "/vellora", "record", "--fullscreen", "--microphone", "default", "--system-sound",
                             "--keystrokes", "--camera", "test:pattern"], stdin=subprocess.DEVNULL, stdout=output)
beginning = time.monotonic()
memory = []
while (passed := time.monotonic() - beginning) < seconds:
    time.sleep(min(10, seconds - passed))
    if recorder.poll() is not None:
        sys.exit(f"recording_long.sh: the recorder ended after {passed:.0f} s with {recorder.returncode}")
    memory.append((time.monotonic() - beginning, memory_of(recorder.pid)))
    subprocess.run(["xdotool", "key", "ctrl+k"], check=True)
    print("%5.0f s  %6.1f MB" % memory[-1], file=sys.stderr, flush=True)
interrupted = time.monotonic()
recorder.send_signal(signal.SIGINT)
_, status, usage = os.wait4(recorder.pid, 0)
finishing = time.monotonic() - interrupted
recorder.returncode = status
if status != 0:
    sys.exit(f"recording_long.sh: the recorder ended with {status}")
scene.terminate()
painted = scene.communicate()[0].strip()
output.seek(0)
bundle = output.read().strip().splitlines()[-1]
movie = bundle + "/screen.mov"
with open(folder + "/times") as lines:
    shown = [0.0] + [float(line.split()[1]) for line in lines]
clicks = list(microphone.clicks)
with open(bundle + "/report.json") as file:
    report = json.load(file)
recorded = report["duration"]

print(f"{recorded:.1f} s of 1920x1080, {painted}; {sum(map(os.path.getsize, glob.glob(bundle + '/*'))) / 1e6:.0f} MB, "
      f"screen.mov {os.path.getsize(movie) * 8e-6 / recorded:.1f} Mbit/s, camera.mov "
      f"{os.path.getsize(bundle + '/camera.mov') * 8e-6 / recorded:.1f} Mbit/s")
print(f"CPU: {usage.ru_utime + usage.ru_stime:.0f} s, {100 * (usage.ru_utime + usage.ru_stime) / recorded:.0f} % of one processor")
print(f"from SIGINT to the exit: {finishing:.2f} s")
minute = min(memory, key=lambda sample: abs(sample[0] - 60))
print(f"memory: {minute[1]:.1f} MB after {minute[0]:.0f} s, {memory[-1][1]:.1f} MB after {memory[-1][0]:.0f} s, "
      f"at most {max(size for _, size in memory):.1f} MB")
print("%-10s %8s %8s %8s %8s %10s %8s" % ("sound", "clicks", "least", "median", "most ms", "pictures", "missed"))
painted_numbers = []
for start in [0.0] + [600.0] * (recorded > 600 + 2 * WINDOW) + [recorded - WINDOW]:
    pictures = pictures_at(movie, start)
    numbers = [number for _, number in pictures]
    painted_numbers += numbers
    offsets = offsets_at(movie, start, pictures)
    print("%-10s %8d %8.1f %8.1f %8.1f %10d %8d" %
          (f"at {start:.0f} s", len(offsets), 1e3 * min(offsets), 1e3 * statistics.median(offsets), 1e3 * max(offsets),
           len(set(numbers)), numbers[-1] - numbers[0] + 1 - len(set(numbers))), flush=True)
print(f"the microphone was at most {1e3 * microphone.latest:.1f} ms late with a click")
frames = int(output_of(["ffprobe", "-v", "error", "-select_streams", "v", "-count_packets", "-show_entries",
                        "stream=nb_read_packets", "-of", "csv=p=0", movie]))
print(f"{frames} frames in the file, {painted_numbers[-1] - painted_numbers[0] + 1} pictures painted from the first to the last")
print("report: " + json.dumps(report))
END_OF_PROGRAM
