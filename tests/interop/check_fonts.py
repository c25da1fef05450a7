#!/usr/bin/env python3
"""Compares what we draw of shape fonts with what shx-parser draws: check_fonts.py LISTER FOLDER.

Every shape of the fonts that LISTER (list_fonts) writes must have the same strokes and end at the
same place. The other reader's arcs are chords of ten degrees, so that curves are compared by their
distance from each other. What it is known to take otherwise isn't in the fonts: big font shapes that
rely on the pen being down at first, a 0 within the bytes, the high byte of a radius, base points of
fitted primitives, references of unifonts. It reckons a text's height from the lowest to the highest
point; list_fonts says the size that makes its units those of the font.
"""

import json
import math
import pathlib
import shutil
import subprocess
import sys

from npm_readers import HERE, install

EXACT = 1e-4  # our listing has six decimals
CHORD = 0.06  # of the largest arcs
LEAST_SHAPES = 4000


def near(a, b, tolerance):
    return math.dist(a, b) <= tolerance


def from_segment(p, a, b):
    dx, dy = b[0] - a[0], b[1] - a[1]
    square = dx * dx + dy * dy
    t = 0 if square == 0 else max(0, min(1, ((p[0] - a[0]) * dx + (p[1] - a[1]) * dy) / square))
    return math.dist(p, (a[0] + t * dx, a[1] + t * dy))


def lies_on(points, path):
    return all(min(from_segment(p, a, b) for a, b in zip(path, path[1:])) <= CHORD for p in points)


def same_stroke(ours, theirs):
    if len(ours) == len(theirs) and all(near(a, b, EXACT) for a, b in zip(ours, theirs)):
        return True
    ends = near(ours[0], theirs[0], EXACT) and near(ours[-1], theirs[-1], EXACT)
    return ends and len(theirs) > 2 and lies_on(theirs, ours) and lies_on(ours, theirs)


def same(ours, theirs):
    return (theirs["end"] is not None and near(ours["end"], theirs["end"], EXACT)
            and len(ours["strokes"]) == len(theirs["strokes"])
            and all(map(same_stroke, ours["strokes"], theirs["strokes"])))


def lines(text):
    return [json.loads(line) for line in text.splitlines()]


def main(lister, folder):
    folder = pathlib.Path(folder)
    fonts = folder / "fonts"
    shutil.rmtree(fonts, ignore_errors=True)
    fonts.mkdir(parents=True)
    modules = install(folder)
    subprocess.run([lister, fonts], check=True)
    shapes = wrong = 0
    for listing in sorted(fonts.glob("*.txt")):
        font = listing.with_suffix("")
        run = subprocess.run(["node", HERE / "read_shx.mjs", modules, font, listing],
                             capture_output=True, text=True, check=True)
        ours, theirs = lines(listing.read_text()), lines(run.stdout)
        different = [(a, b) for a, b in zip(ours, theirs, strict=True) if not same(a, b)]
        for mine, other in different[:3]:
            print(f"{font.name}: shape {mine['code']}:", mine, other, sep="\n  ")
        print(f"{font.name}: {len(ours)} shapes, {len(different)} read otherwise")
        shapes += len(ours)
        wrong += len(different)
    return 1 if wrong or shapes < LEAST_SHAPES else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
