#!/bin/sh
# recording.sh [FOLDER]
#
# Records the busy desktop that moving_scene paints at 60 pictures a second on a private 1920x1080 display: `vellora record` and
# ffmpeg's x11grab with x264's fastest preset in turn, side by side in one run. All of it, the display included, shares two
# processors. Prints for each recording how many different pictures are in the file, the recorder's CPU time (user and system),
# what the file takes, and what Vellora's threads used; then medians and ratios, and the CPU time of recording a screen that
# stands still. ffmpeg is given BITRATE, by default the most Vellora allows itself at this size. FOLDER holds the programs, by
# default build/release/bin. ROUNDS sets the number of rounds, SECONDS_EACH their length,
# SCENE=--photographs makes the desktop harder to compress.
# Needs Xvfb, ffmpeg and python3.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
. "$here/common.sh"
programs=${1:-$here/../build/release/bin}

need Xvfb ffmpeg python3 taskset "$programs/vellora" "$programs/moving_scene"

make_folder

taskset -p -c 0,1 $$ > /dev/null
start_display 1920x1080

PYTHONDONTWRITEBYTECODE=1 PYTHONPATH=$here python3 - "$folder" "$programs" "${ROUNDS:-5}" "${SECONDS_EACH:-8}" \
  "${BITRATE:-$((1920 * 1080 * 8))}" ${SCENE:-} << 'END_OF_PROGRAM'
import glob, os, shutil, statistics, subprocess, sys, time
from identify_frames import identify

folder, programs = sys.argv[1:3]
rounds, seconds = int(sys.argv[3]), float(sys.argv[4])
bit_rate = sys.argv[5]
tick = os.sysconf("SC_CLK_TCK")


class Scene:
    def __init__(self, *options):
        self.process = subprocess.Popen([programs + "/moving_scene", *options], stdout=subprocess.PIPE, text=True)
        if self.process.stdout.readline() != "ready\n":
            sys.exit("recording.sh: the scene was not painted")

    def end(self):
        self.process.terminate()
        return self.process.communicate()[0].strip()


def thread_times(pid):
    """CPU seconds of each thread, with its name."""
    times = []
    for path in glob.glob(f"/proc/{pid}/task/*/stat"):
        try:
            with open(path) as file:
                name, rest = file.read().split("(", 1)[1].rsplit(")", 1)
        except OSError:
            continue
        fields = rest.split()
        times.append(((int(fields[11]) + int(fields[12])) / tick, name))
    return times


def run(command):
    """CPU seconds of a program, and the last seen of its threads."""
    with open(folder + "/output", "w") as output:
        process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=output, stderr=output)
    threads = []
    while True:
        pid, status, usage = os.wait4(process.pid, os.WNOHANG)
        if pid:
            break
        threads = thread_times(process.pid) or threads
        time.sleep(0.25)
    process.returncode = status
    if status != 0:
        with open(folder + "/output") as output:
            sys.exit(f"recording.sh: {command[0]} failed: {output.read()}")
    return usage.ru_utime + usage.ru_stime, threads


def vellora(length):
    cpu, threads = run([programs + "/vellora", "record", "--fullscreen", "--duration", str(length)])
    with open(folder + "/output") as output:
        bundle = output.read().strip().splitlines()[-1]
    return bundle + "/screen.mov", cpu, threads, lambda: shutil.rmtree(bundle)


def ffmpeg(length):
    movie = folder + "/ffmpeg.mp4"
    cpu, threads = run(["ffmpeg", "-nostdin", "-v", "error", "-y", "-f", "x11grab", "-framerate", "60", "-i", os.environ["DISPLAY"],
                        "-t", str(length), "-c:v", "libx264", "-preset", "ultrafast", "-b:v", bit_rate, movie])
    return movie, cpu, threads, lambda: os.remove(movie)


recorders = {"vellora": vellora, "ffmpeg": ffmpeg}
measured = {name: [] for name in recorders}
print(f"{rounds} rounds of {seconds:g} s, ffmpeg at {int(bit_rate) / 1e6:.1f} Mbit/s")
print("%-8s %9s %9s %9s %9s %9s" % ("", "distinct", "frames", "missed", "CPU s", "Mbit/s"))
profile = []
for number in range(rounds + 1):
    for name, record in recorders.items():
        scene = Scene(*sys.argv[6:])
        movie, cpu, threads, remove = record(seconds)
        scene.end()
        seen = identify(movie)
        rate = os.path.getsize(movie) * 8e-6 / seconds
        remove()
        if seen["torn"] or seen["backward"]:
            print(f"{name}: {seen['torn']} frames torn, {seen['backward']} backward")
        if number == 0:  # fills the caches
            continue
        row = (seen["distinct"], seen["frames"], seen["missed"], cpu, rate)
        measured[name].append(row)
        if name == "vellora":
            profile = threads
        print("%-8s %9d %9d %9d %9.2f %9.1f" % (name, *row), flush=True)

medians = {name: [statistics.median(column) for column in zip(*rows)] for name, rows in measured.items()}
print("medians")
for name, row in medians.items():
    print("%-8s %9d %9d %9d %9.2f %9.1f" % (name, *row))
ours, theirs = medians["vellora"], medians["ffmpeg"]
print("%-8s %9.2f %29.2f %9.2f" % ("ratio", ours[0] / theirs[0], ours[3] / theirs[3], ours[4] / theirs[4]))
print("CPU s a picture: vellora %.4f, ffmpeg %.4f" % (ours[3] / ours[0], theirs[3] / theirs[0]))
print("vellora's threads in the last round:")
for used, name in sorted(profile, reverse=True):
    if used >= 0.05:
        print("  %-16s %6.2f s" % (name, used))

scene = Scene("--still")
short, long = 2.0, 12.0
still = {}
for length in (short, long):
    values = []
    for _ in range(3):
        _, cpu, _, remove = vellora(length)
        remove()
        values.append(cpu)
    still[length] = statistics.median(values)
scene.end()
share = (still[long] - still[short]) / (long - short)
print(f"still screen: {still[short]:.2f} s of CPU in {short:g} s with start and end, {still[long]:.2f} s in {long:g} s: "
      f"{100 * share:.1f} % of one processor")
END_OF_PROGRAM
