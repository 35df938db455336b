#!/bin/sh
# compress.sh [BUILD]
#
# Compressing pictures, side by side in one run: `vellora compress` beside cwebp and `vips webpsave` on screenshots, beside
# `vipsthumbnail` on photographs that become smaller, its memory over many large files, and its PNG files beside those of optipng,
# pngcrush and zopflipng, as far as they are installed. BUILD is a build folder, by default build/release, with the programs vellora
# and compress_pictures. Contenders take turns; the table shows medians. The memory of those that run two at a time is that of one.
# Needs webp, libvips-tools and python3. ROUNDS sets the rounds, FILES the files of the runs for memory (0: none), PNGS the pictures
# for the PNG optimizers (0: none).
set -eu
here=$(cd "$(dirname "$0")" && pwd)
. "$here/common.sh"
programs=$(cd "${1:-$here/../build/release}/bin" && pwd)

make_folder
start_home

for kind in screenshots photos captures; do
  mkdir "$folder/$kind"
  "$programs/compress_pictures" "$kind" "$folder/$kind" 12
done

python3 - "$folder" "$programs" "${ROUNDS:-5}" "${FILES:-1000}" "${PNGS:-3}" << 'END' || echo "compress.sh: not all was measured" >&2
import os, shutil, statistics, sys, time

folder, programs = sys.argv[1:3]
rounds, files, pngs = (int(argument) for argument in sys.argv[3:])
memory_limit = 600
out = folder + "/out"

def run(command):
    """Wall time and CPU time in seconds, peak memory in MB, bytes written."""
    shutil.rmtree(out, ignore_errors=True)
    os.mkdir(out)
    began = time.monotonic()
    pid = os.fork()
    if pid == 0:
        quiet = os.open(folder + "/output", os.O_WRONLY | os.O_CREAT | os.O_TRUNC)
        os.dup2(quiet, 1)
        os.dup2(quiet, 2)
        os.execvp("sh", ["sh", "-c", command])
    _, status, usage = os.wait4(pid, 0)
    wall = time.monotonic() - began
    if status != 0:
        sys.exit("failed: " + command + "\n" + open(folder + "/output").read())
    size = sum(entry.stat().st_size for entry in os.scandir(out))
    return wall, usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024, size / 1e6

def vellora(options, source):
    return "exec %s/vellora compress %s --output-folder %s %s" % (programs, options, out, source)

def two_at_a_time(source, command):
    """`command` with $1 for the file and $2 for its name without extension."""
    script = 'n=${1##*/}; set -- "$1" "${n%%.*}"; exec %s' % command
    return "printf '%%s\\n' %s/* | xargs -P 2 -n 1 sh -c '%s' sh" % (source, script)

def show(name, values, ratios=""):
    print("%-42s %8.2f %8.2f %9.0f %9.2f  %s" % (name, *values, ratios), flush=True)

def compare(title, contenders, limits):
    """The first of `contenders` is ours; the others are grouped by program, of which the fastest way counts."""
    print("\n%-42s %8s %8s %9s %9s" % (title, "wall s", "CPU s", "peak MB", "MB out"), flush=True)
    measured = {name: [] for name, _ in contenders}
    for number in range(rounds + 1):
        for name, command in contenders:
            values = run(command)
            if number > 0:  # the first round fills the caches
                measured[name].append(values)
    medians = {name: [statistics.median(column) for column in zip(*values)] for name, values in measured.items()}
    ours = medians[contenders[0][0]]
    for name, _ in contenders:
        values = medians[name]
        others = "" if values is ours else "ours is %.2f of its wall time, %.2f of its CPU time" % (
            ours[0] / values[0], ours[1] / values[1])
        show(name, values, others)
    for program, limit in limits.items():
        fastest = min(values[0] for name, values in medians.items() if name.startswith(program))
        ratio = ours[0] / fastest
        print("  wall time beside %-20s %.2f, limit %.2f: %s" % (
            program, ratio, limit, "met" if ratio <= limit else "MISSED"), flush=True)

print("%d processors, medians of %d rounds" % (os.cpu_count(), rounds))
screenshots, photos, captures = (folder + "/" + kind for kind in ("screenshots", "photos", "captures"))

compare("12 screenshots of 3000 × 2000 to WebP 75", [
    ("vellora compress --jobs 2", vellora("--format webp --quality 75 --jobs 2", screenshots)),
    ("cwebp -q 75, two at a time", two_at_a_time(screenshots, 'cwebp -quiet -q 75 "$1" -o %s/"$2".webp' % out)),
    ("vips webpsave, two at a time", two_at_a_time(screenshots, 'vips webpsave "$1" %s/"$2".webp --Q 75' % out)),
    ("vips webpsave, one after the other", "for f in %s/*; do n=${f##*/}; vips webpsave $f %s/${n%%.*}.webp --Q 75; done"
     % (screenshots, out)),
], {"cwebp": 1.0, "vips webpsave": 0.85})

run(two_at_a_time(screenshots, 'cwebp -quiet -q 75 "$1" -o %s/"$2".webp' % out))
os.rename(out, folder + "/theirs")
run(vellora("--format webp --quality 75 --jobs 2", screenshots))
read = lambda path: open(path, "rb").read()
names = sorted(os.listdir(out))
equal = sum(read(out + "/" + name) == read(folder + "/theirs/" + name) for name in names)
print("  files that are cwebp's, byte for byte: %d of %d" % (equal, len(names)))

for title, format, extension, extra in [
    ("12 photos of 4000 × 3000 to 2560 WebP 75", "webp", "webp", []),
    ("12 photos of 4000 × 3000 to 2560 JPEG 75", "jpeg", "jpg", ["interlace,optimize_coding"]),
]:
    def thumbnails(options):
        target = "%s/%%s.%s[%s]" % (out, extension, ",".join(["Q=75"] + options))
        return 'vipsthumbnail -s 2560 -o "%s"' % target
    contenders = [
        ("vellora compress --jobs 2", vellora("--format %s --quality 75 --max-edge 2560 --jobs 2" % format, photos)),
        ("vipsthumbnail, two at a time", two_at_a_time(photos, thumbnails([]) + ' "$1"')),
        ("vipsthumbnail, one after the other", "%s %s/*" % (thumbnails([]), photos)),
    ]
    # What ours writes: progressive, with its own Huffman tables. Not counted for the limit.
    contenders += [("(progressive) vipsthumbnail, two at a time", two_at_a_time(photos, thumbnails([options]) + ' "$1"'))
                   for options in extra]
    compare(title, contenders, {"vipsthumbnail": 1.0})

if files > 0:
    print("\n%-42s %8s %8s %9s %9s" % ("%d files of 12 Mpx" % files, "wall s", "CPU s", "peak MB", "MB out"))
    for title, source, options in [
        ("JPEG to JPEG 75", photos, "--format jpeg --quality 75"),
        ("PNG to WebP 75", captures, "--format webp --quality 75"),
    ]:
        many = folder + "/many"
        os.mkdir(many)
        pictures = sorted(os.listdir(source))
        for number in range(files):
            name = pictures[number % len(pictures)]
            os.link(source + "/" + name, "%s/%04d-%s" % (many, number, name))
        values = run(vellora(options, many))
        show(title, values, "limit %d MB: %s" % (memory_limit, "met" if values[2] < memory_limit else "MISSED"))
        shutil.rmtree(many)

if pngs > 0:
    few = folder + "/few"
    os.mkdir(few)
    for name in sorted(os.listdir(screenshots))[:pngs]:
        os.link(screenshots + "/" + name, few + "/" + name)
    before = sum(entry.stat().st_size for entry in os.scandir(few)) / 1e6
    print("\n%-42s %8s %8s %9s %9s" % ("%d PNG files of %.2f MB, without loss" % (pngs, before), "wall s", "CPU s", "peak MB", "MB out"))
    show("vellora compress --jobs 2", run(vellora("--format original --jobs 2", few)))
    for name, command in [
        ("optipng", 'optipng -quiet "$1" -out %s/"$2".png' % out),
        ("pngcrush", 'pngcrush -q "$1" %s/"$2".png' % out),
        ("zopflipng", 'zopflipng -q "$1" %s/"$2".png' % out),
    ]:
        if shutil.which(name.split()[0]):
            show(name + ", two at a time", run(two_at_a_time(few, command)))
END
