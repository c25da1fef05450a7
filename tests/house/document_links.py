#!/usr/bin/env python3
"""Checks that every link and picture of the documents leads to a file, and to a heading in it."""

import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
LINK = re.compile(r"\]\(([^)\s]+)\)")
CODE = re.compile(r"```.*?```|`[^`\n]*`", re.DOTALL)
HEADING = re.compile(r"^#+ (.+)$", re.MULTILINE)


def anchors(text):
    """The names that headings are linked by: small letters, blanks as hyphens, no punctuation."""
    return {re.sub(r"[^\w\- ]", "", heading.lower()).strip().replace(" ", "-")
            for heading in HEADING.findall(text)}


def problems_of(path, text):
    for target in LINK.findall(CODE.sub("", text)):
        if re.match(r"\w+:", target):
            continue
        name, _, anchor = target.partition("#")
        file = (path.parent / name).resolve() if name else path
        if not file.exists():
            yield f"{target} doesn't exist"
        elif anchor and anchor not in anchors(file.read_text(encoding="utf-8")):
            yield f"{target}: there is no such heading"


def self_test():
    here = pathlib.Path(__file__)
    assert not list(problems_of(here, "[a](document_links.py) `[b](c.md)` [d](https://e)"))
    assert list(problems_of(here, "![a](missing.png)"))
    assert anchors("# One two, three\n## `code`\n") == {"one-two-three", "code"}


def main():
    self_test()
    listing = subprocess.run(
        ["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard", "*.md"], cwd=ROOT,
        check=True, capture_output=True).stdout.decode()
    paths = [ROOT / name for name in listing.split("\0") if name and (ROOT / name).exists()]
    problems = [f"{path.relative_to(ROOT)}: {problem}" for path in paths
                for problem in problems_of(path, path.read_text(encoding="utf-8"))]
    print(*problems, sep="\n", end="\n" if problems else "")
    print(f"{len(paths)} documents read, {len(problems)} problems")
    return 1 if problems or not paths else 0


if __name__ == "__main__":
    sys.exit(main())
