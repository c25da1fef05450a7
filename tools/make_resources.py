#!/usr/bin/env python3
"""Draws the pictures of the module's resources from the pixel rows below.

Usage: tools/make_resources.py [FOLDER]     (default src/resources)

tool_bar.bmp      150 x 15, 16 colours: three empty cells, 上页, 下页, 功能
menu_images.bmp   32 x 15, 256 colours: large icons, small icons
*.cur             32 x 32, two colours with transparency
"""

import math
import pathlib
import struct
import sys

GREY = (0xC0, 0xC0, 0xC0)

# Cells 3 to 5 of the tool bar, 25 x 15 each; "#" is black.
PREVIOUS_PAGE = """
.........................
.........................
.....#......###########..
.....#...........#.......
.....#.......#########...
.....#..#....#.......#...
.....#####...#...#...#...
.....#.......#...#...#...
.....#.......#...#...#...
.....#.......#...#...#...
.....#...........#.#.....
.....#...#.....##...###..
###########.###......#...
.........................
........................."""
NEXT_PAGE = """
.........................
.........................
.........#..###########..
###########......#.......
.....#.......#########...
.....##......#.......#...
.....#.#.....#...#...#...
.....#..##...#...#...#...
.....#...#...#...#...#...
.....#.......#...#...#...
.....#...........#.#.....
.....#.........##...###..
.....#......###......#...
.........................
........................."""
FUNCTIONS = """
.........................
.........................
.......#.....#....#..#...
.......#....#..#..#.#....
#####..#....###.#.##..#..
..#..######.......#...#..
..#....#..#.#####..####..
..#....#..#.#...#........
..#....#..#.#####.#..#...
..###.#...#.#...#.#.#....
##....#...#.#####.##..#..
.....#.#..#.#...#.#...#..
...##...##..#..##..####..
.........................
........................."""

# The two menu images, 16 x 15 each: b blue, w white, s dark grey, . background.
LARGE_ICONS = """
................
.bbbbb...bbbbb..
bwwwwwb.bwwwwwb.
bwwwwwb.bwwwwwb.
bwwbwwb.bwwbwwb.
bwbbbwb.bwbbbwb.
bwwbwwb.bwwbwwb.
bwwwwwb.bwwwwwb.
.bbbbb...bbbbb..
................
.sssss...sssss..
................
..sss.....sss...
................
................"""
SMALL_ICONS = """
................
.bbb............
.bwb.sssssssss..
.bbb............
................
.bbb............
.bwb.sssssss....
.bbb............
................
.bbb............
.bwb.ssssssssss.
.bbb............
................
................
................"""
# All of them among the sixteen that an image list of the default depth keeps.
MENU_COLOURS = {".": GREY, "b": (0, 0, 0x80), "w": (255, 255, 255), "s": (0x80, 0x80, 0x80)}

# An arrow whose tip is the hot spot; "#" black, "o" white.
ARROW = """
#...........
##..........
#o#.........
#oo#........
#ooo#.......
#oooo#......
#ooooo#.....
#oooooo#....
#ooooooo#...
#oooooooo#..
#ooooo#####.
#oo#oo#.....
#o##oo#.....
##..#oo#....
#...#oo#....
.....##....."""
# A hand with its forefinger up.
HAND = """
......##........
.....#oo#.......
.....#oo#.......
.....#oo#.......
.....#oo#.......
.....#oo###.....
.....#oo#oo###..
.....#oo#oo#oo#.
.##..#oo#oo#oo##
#oo#.#oo#oo#oo#o#
#ooo##oooooooo#o#
.#oo##oooooooooo#
..#o#ooooooooooo#
..#ooooooooooooo#
...#oooooooooooo#
...#ooooooooooo#.
....#oooooooooo#.
....#ooooooooo#..
.....#oooooooo#..
.....##########.."""


def rows_of(art):
    return art.strip("\n").split("\n")


def bitmap(width, height, bits, palette, pixel):
    """A Windows bitmap file; pixel(x, y) is an index into the palette."""
    colours = 1 << bits
    stride = (width * bits + 31) // 32 * 4
    table = b"".join(bytes((b, g, r, 0)) for r, g, b in palette)
    table += bytes(4 * (colours - len(palette)))
    body = bytearray()
    for y in range(height - 1, -1, -1):
        row = bytearray(stride)
        for x in range(width):
            bit = x * bits
            row[bit // 8] |= pixel(x, y) << (8 - bits - bit % 8)
        body += row
    offset = 14 + 40 + len(table)
    header = struct.pack("<2sIHHI", b"BM", offset + len(body), 0, 0, offset)
    info = struct.pack("<IiiHHIIiiII", 40, width, height, 1, bits, 0, len(body), 2835, 2835,
                       colours, 0)
    return header + info + table + bytes(body)


def tool_bar():
    # The sixteen colours that every display had; index 8 is light grey, 0 black.
    dark = [(r, g, b) for b in (0, 128) for g in (0, 128) for r in (0, 128)]
    bright = [(r, g, b) for b in (0, 255) for g in (0, 255) for r in (0, 255)]
    palette = dark[:7] + [GREY, (128, 128, 128)] + bright[1:]
    grey, black = palette.index(GREY), 0
    cells = [None, None, None] + [rows_of(art) for art in (PREVIOUS_PAGE, NEXT_PAGE, FUNCTIONS)]

    def pixel(x, y):
        cell = cells[x // 25]
        return black if cell and cell[y][x % 25] == "#" else grey

    return bitmap(150, 15, 4, palette, pixel)


def menu_images():
    letters = list(MENU_COLOURS)
    cells = [rows_of(LARGE_ICONS), rows_of(SMALL_ICONS)]
    return bitmap(32, 15, 8, list(MENU_COLOURS.values()),
                  lambda x, y: letters.index(cells[x // 16][y][x % 16]))


def canvas():
    return [["."] * 32 for _ in range(32)]


def paste(target, art, left, top):
    for y, row in enumerate(rows_of(art)):
        for x, mark in enumerate(row):
            if mark != ".":
                target[top + y][left + x] = mark


def copy_cursor():
    """An arrow with a plus, and the dashed box of what is copied beside it."""
    target = canvas()
    paste(target, ARROW, 11, 8)
    for step in range(9):
        if step % 3 != 2:
            for x, y in ((step, 8), (step, 16), (0, 8 + step), (8, 8 + step)):
                target[y][x] = "#"
    for x in range(23, 30):
        target[22][x] = "#"
    for y in range(19, 26):
        target[y][26] = "#"
    return target


def hand_cursor():
    target = canvas()
    paste(target, HAND, 0, 0)
    return target


def forbidden_cursor():
    """A ring with a bar across, black between white edges; its middle is the hot spot."""
    target = canvas()
    for y in range(32):
        for x in range(32):
            dx, dy = x - 17, y - 15
            ring = abs(math.hypot(dx, dy) - 9)
            bar = abs(dx - dy) / math.sqrt(2) if math.hypot(dx, dy) < 9 else 9
            nearest = min(ring, bar)
            if nearest <= 1.3:
                target[y][x] = "#"
            elif nearest <= 2.3:
                target[y][x] = "o"
    return target


def cursor(pixels, hot_spot):
    """A cursor file of one two-colour image. A pixel is kept (and 1, xor 0), black or white."""
    def mask(bit_of):
        rows = bytearray()
        for row in reversed(pixels):
            for start in range(0, 32, 8):
                rows.append(sum(bit_of(row[start + i]) << (7 - i) for i in range(8)))
        return bytes(rows)

    image = struct.pack("<IiiHHIIiiII", 40, 32, 64, 1, 1, 0, 256, 0, 0, 2, 0)
    image += bytes((0, 0, 0, 0, 255, 255, 255, 0))
    image += mask(lambda mark: mark == "o") + mask(lambda mark: mark == ".")
    entry = struct.pack("<BBBBHHII", 32, 32, 2, 0, *hot_spot, len(image), 22)
    return struct.pack("<HHH", 0, 2, 1) + entry + image


def main():
    default = pathlib.Path(__file__).resolve().parents[1] / "src/resources"
    folder = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else default
    files = {
        "tool_bar.bmp": tool_bar(),
        "menu_images.bmp": menu_images(),
        "copy.cur": cursor(copy_cursor(), (11, 8)),
        "hand.cur": cursor(hand_cursor(), (6, 0)),
        "forbidden.cur": cursor(forbidden_cursor(), (17, 15)),
    }
    for name, contents in files.items():
        (folder / name).write_bytes(contents)


if __name__ == "__main__":
    main()
