#!/usr/bin/env python3
"""Checks that no hand-written source file has grown past what one can read."""

import pathlib
import sys

LIMIT = 600
FOLDERS = ("src", "tests", "fuzz", "bench", "tools")
SUFFIXES = {".h", ".cpp", ".py", ".sh"}


def main():
    root = pathlib.Path(__file__).resolve().parents[2]
    count = 0
    long_files = []
    for folder in FOLDERS:
        for path in sorted((root / folder).rglob("*")):
            if path.suffix not in SUFFIXES:
                continue
            count += 1
            lines = path.read_text(encoding="utf-8").count("\n")
            if lines > LIMIT:
                long_files.append(f"{path.relative_to(root)}: {lines} lines, more than {LIMIT}")
    print(*long_files, sep="\n", end="\n" if long_files else "")
    print(f"{count} files measured, {len(long_files)} problems")
    return 1 if long_files or count == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
