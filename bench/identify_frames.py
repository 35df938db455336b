#!/usr/bin/env python3
"""identify_frames.py MOVIE

Reads the numbers that moving_scene painted from a recording of its screen. Prints how many frames the movie has, how many
different numbers they show, how many of the numbers painted meanwhile that leaves out, and frames whose two rows of
blocks differ (torn) or whose number is less than the one before (backward). Needs ffmpeg."""

import subprocess
import sys
import tempfile

BLOCKS, WIDTH, HEIGHT = 16, 48, 32  # as in ScenePainter
ROW = f"crop={BLOCKS * WIDTH}:{HEIGHT}:0:"
# The rows of blocks along the upper and the lower edge, a pixel for each block.
GRAPH = (f"[0:v]split[a][b];[a]{ROW}0,scale={BLOCKS}:1:flags=area[top];"
         f"[b]{ROW}in_h-{HEIGHT},scale={BLOCKS}:1:flags=area[bottom];[top][bottom]vstack,format=gray")
FFMPEG = ["ffmpeg", "-nostdin", "-v", "error"]
AS_THEY_ARE = ["-fps_mode", "passthrough", "-enc_time_base", "-1"]


def output_of(command):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE).stdout


def pairs_in(pixels):
    """The pair of numbers along the upper and the lower edge of each frame."""
    rows = [sum(1 << bit for bit in range(BLOCKS) if pixels[at + bit] > 127) for at in range(0, len(pixels), BLOCKS)]
    return list(zip(rows[0::2], rows[1::2]))


def times_in(listing):
    """The seconds of a listing that ffmpeg's framecrc wrote, with each packet's length in bytes."""
    base, times = 0, []
    with open(listing) as lines:
        for line in lines:
            if line.startswith("#tb 0:"):
                numerator, denominator = line.split(":")[1].split("/")
                base = int(numerator) / int(denominator)
            elif not line.startswith("#"):
                fields = line.split(",")
                times.append((int(fields[2]) * base, int(fields[4])))
    return times


def excerpt(movie, start, length):
    """The second in the movie and the pair of numbers of each frame from `start` on."""
    with tempfile.NamedTemporaryFile() as listing:
        pixels = output_of(FFMPEG + ["-ss", str(start), "-t", str(length), "-copyts", "-i", movie, "-filter_complex",
                                     GRAPH + ",split[pixels][listing]",
                                     "-map", "[pixels]", *AS_THEY_ARE, "-f", "rawvideo", "-",
                                     "-map", "[listing]", *AS_THEY_ARE, "-y", "-f", "framecrc", listing.name])
        return [(time, *pair) for (time, _), pair in zip(times_in(listing.name), pairs_in(pixels), strict=True)]


def summary_of(pairs):
    whole = [top for top, bottom in pairs if top == bottom]
    if not whole:
        sys.exit("identify_frames.py: no frame can be identified")
    distinct = len(set(whole))
    return {
        "frames": len(pairs),
        "distinct": distinct,
        "missed": max(whole) - min(whole) + 1 - distinct,
        "torn": len(pairs) - len(whole),
        "backward": sum(later < earlier for earlier, later in zip(whole, whole[1:])),
    }


def identify(movie):
    return summary_of(pairs_in(output_of(FFMPEG + ["-i", movie, "-filter_complex", GRAPH, *AS_THEY_ARE,
                                                   "-f", "rawvideo", "-"])))


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    print(", ".join(f"{count} {name}" for name, count in identify(sys.argv[1]).items()))
