#!/usr/bin/env python3
"""Compares what we read in slides with what netpbm's sldtoppm reads.

Usage: check_slides.py LISTER VORNIK FOLDER

The slides are real ones, a hundred of our own, and all of the sample library that VORNIK makes.
Every line, polygon and colour must agree. The two ends of a line carry no meaning and may change
places.
"""

import pathlib
import re
import shutil
import subprocess
import sys

DATA = pathlib.Path(__file__).parent.parent / "data" / "slides"
BLANK = "ZHL1000"  # the one symbol without a figure
LEAST = 103 + 60 + 25 + 9  # real and own ones, symbols, circuits, auxiliary symbols
VECTOR = re.compile(r"Vector (\(.*?\)) - (\(.*?\))\s+Color (\d+)")
POLYGON = re.compile(r"Polygon: (\d+) points, fill type \d+, color (\d+)")
POINT = re.compile(r"Point \d+:\s+(\(.*?\))")


def theirs(slide):
    run = subprocess.run(["sldtoppm", "-verbose", slide], capture_output=True, check=True)
    shapes = []
    for line in run.stderr.decode("latin-1").splitlines():
        if match := VECTOR.search(line):
            shapes.append(("vector", match[3], sorted(match.group(1, 2))))
        elif match := POLYGON.search(line):
            shapes.append(("polygon", match[2], []))
        elif match := POINT.search(line):
            shapes[-1][2].append(match[1])
    return shapes


def ours(listing):
    shapes = []
    for line in listing.read_text().splitlines():
        kind, colour = line.split()[:2]
        points = re.findall(r"\(.*?\)", line)
        shapes.append((kind, colour, sorted(points) if kind == "vector" else points))
    return shapes


def main(lister, vornik, folder):
    folder = pathlib.Path(folder)
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    subprocess.run([vornik, "sample", folder / "install"], check=True, stderr=subprocess.DEVNULL)
    libraries = sorted((folder / "install").rglob("*.slb"))
    subprocess.run([lister, folder, *sorted(DATA.glob("*.sl[db]")), *libraries], check=True)
    slides = sorted(folder.glob("*.sld"))
    shapes = wrong = 0
    for slide in slides:
        mine, other = ours(slide.with_suffix(".txt")), theirs(slide)
        shapes += len(mine)
        if mine == other and (mine or slide.stem == BLANK):
            continue
        wrong += 1
        pairs = [pair for pair in zip(mine, other) if pair[0] != pair[1]]
        print(f"{slide.name}: {len(mine)} shapes against {len(other)}", *pairs[:3], sep="\n  ")
    print(f"{len(slides)} slides, {shapes} lines and polygons, {wrong} slides read otherwise")
    return 1 if wrong or len(slides) < LEAST else 0


sys.exit(main(*sys.argv[1:]))
