#!/usr/bin/env python3
"""Writes the stroke tables of src/embedded/drafting/fonts/glyphs/ from their sources.

Usage: tools/make_glyphs.py latin rowmans.jhf      > .../glyphs/latin.inc
       tools/make_glyphs.py chinese DATA_FOLDER    > .../glyphs/chinese.inc

rowmans.jhf is of the Debian package hershey-fonts-data, DATA_FOLDER an unpacked npm package
hanzi-writer-data. A glyph is written as its pen's strokes, separated by blanks; a point is two
characters, x and y, each the code of "0" plus the coordinate. glyphs/README.md tells the rest.
"""

import json
import pathlib
import sys

LATIN_BASELINE = 8  # what y = 0 is written as
EM_BOTTOM = -124
EM_STEP = 16  # em units to one of ours
RARER = "耦匝阈"  # not among the common characters, but of this trade


def written(strokes):
    return " ".join("".join(chr(48 + x) + chr(48 + y) for x, y in stroke) for stroke in strokes)


def row(character, advance, strokes):
    return f"{{0x{ord(character):04X}, {advance}, R\"({written(strokes)})\"}},  // '{character}'"


def latin_row(character, line):
    """A line is number, count and pairs of characters round "R"; y points down, the line is at 9."""
    pairs = [(ord(line[i]) - 82, ord(line[i + 1]) - 82) for i in range(8, len(line) - 1, 2)]
    left, right = pairs[0]
    strokes = [[]]
    for x, y in pairs[1:]:
        if (x, y) == (ord(" ") - 82, 0):
            strokes.append([])
        else:
            strokes[-1].append((x - left, 9 - y + LATIN_BASELINE))
    return row(character, right - left, [s for s in strokes if s])


def latin(path):
    print("// Made by tools/make_glyphs.py from rowmans.jhf; not edited by hand. The Hershey Fonts")
    print("// were originally created by Dr. A. V. Hershey while working at the U. S. National")
    print("// Bureau of Standards; the acknowledgements are in README.md.")
    lines = path.read_text(encoding="ascii").splitlines()
    for number, line in enumerate(lines[:95]):
        print(latin_row(chr(32 + number), line))


def distance(p, a, b):
    (px, py), (ax, ay), (bx, by) = p, a, b
    dx, dy = bx - ax, by - ay
    length = dx * dx + dy * dy
    t = 0 if length == 0 else max(0, min(1, ((px - ax) * dx + (py - ay) * dy) / length))
    return ((ax + t * dx - px) ** 2 + (ay + t * dy - py) ** 2) ** 0.5


def thinned(points, tolerance):
    """Without the points that lie within the tolerance of what stays."""
    if len(points) < 3:
        return points
    far, at = max((distance(p, points[0], points[-1]), i) for i, p in enumerate(points[1:-1], 1))
    if far <= tolerance:
        return [points[0], points[-1]]
    return thinned(points[: at + 1], tolerance)[:-1] + thinned(points[at:], tolerance)


def chinese_strokes(medians):
    strokes = []
    for median in medians:
        points = [(round(x / EM_STEP), round((y - EM_BOTTOM) / EM_STEP))
                  for x, y in thinned(median, 9)]
        strokes.append([p for i, p in enumerate(points) if i == 0 or p != points[i - 1]])
    return strokes


def first_level():
    """The 3,755 common characters of GB 2312."""
    for lead in range(0xB0, 0xD8):
        for trail in range(0xA1, 0xFF):
            try:
                yield bytes([lead, trail]).decode("gb2312")
            except UnicodeDecodeError:
                pass


def chinese(folder):
    print("// Made by tools/make_glyphs.py on 2026-11-21 from the medians of hanzi-writer-data 2.0.1,")
    print("// thinned and brought to a grid of 64; not edited by hand. Derived from AR PL fonts,")
    print("// Copyright (C) 1999 Arphic Technology Co., Ltd.; free under the licence in ARPHICPL.TXT.gz")
    print("// beside this file.")
    for character in sorted([*first_level(), *RARER]):
        path = folder / f"{character}.json"
        medians = json.loads(path.read_text(encoding="utf-8"))["medians"]
        print(row(character, 64, chinese_strokes(medians)))


def main():
    if len(sys.argv) != 3 or sys.argv[1] not in ("latin", "chinese"):
        print(__doc__, file=sys.stderr)
        return 2
    source = pathlib.Path(sys.argv[2])
    latin(source) if sys.argv[1] == "latin" else chinese(source)
    return 0


if __name__ == "__main__":
    sys.exit(main())
