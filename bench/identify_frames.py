#!/usr/bin/env python3
"""identify_frames.py MOVIE

Reads the numbers that moving_scene painted from a recording of its screen. Prints how many frames the movie has, how many
different numbers they show, how many of the numbers painted meanwhile that leaves out, and frames whose two rows of
blocks differ (torn) or whose number is less than the one before (backward). Needs ffmpeg."""

import subprocess
import sys

BLOCKS, WIDTH, HEIGHT = 16, 48, 32  # as in ScenePainter


def numbers_in(movie):
    """The pair of numbers along the upper and the lower edge of each frame."""
    row = f"crop={BLOCKS * WIDTH}:{HEIGHT}:0:"
    graph = (f"[0:v]split[a][b];[a]{row}0,scale={BLOCKS}:1:flags=area[top];"
             f"[b]{row}in_h-{HEIGHT},scale={BLOCKS}:1:flags=area[bottom];[top][bottom]vstack,format=gray")
    pixels = subprocess.run(["ffmpeg", "-nostdin", "-v", "error", "-i", movie, "-filter_complex", graph,
                             "-fps_mode", "passthrough", "-enc_time_base", "-1", "-f", "rawvideo", "-"], check=True, stdout=subprocess.PIPE).stdout
    rows = [sum(1 << bit for bit in range(BLOCKS) if pixels[at + bit] > 127) for at in range(0, len(pixels), BLOCKS)]
    return list(zip(rows[0::2], rows[1::2]))


def identify(movie):
    pairs = numbers_in(movie)
    whole = [top for top, bottom in pairs if top == bottom]
    if not whole:
        sys.exit(f"identify_frames.py: no frame of {movie} can be identified")
    distinct = len(set(whole))
    return {
        "frames": len(pairs),
        "distinct": distinct,
        "missed": max(whole) - min(whole) + 1 - distinct,
        "torn": len(pairs) - len(whole),
        "backward": sum(later < earlier for earlier, later in zip(whole, whole[1:])),
    }


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    print(", ".join(f"{count} {name}" for name, count in identify(sys.argv[1]).items()))
