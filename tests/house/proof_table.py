#!/usr/bin/env python3
"""Checks that docs/proof.md tells the truth as far as a program can see it.

Each row of its tables is operations, code, tests. The files must exist, below src/ or, written with
`packaging/`, there; every name that stands in backquotes among the operations must occur in one of the row's files; every test must
exist: `Suite.Name` of GoogleTest or Python, `file.txt: heading` of a conversation.
"""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
CPP_TEST = re.compile(r"^(?:TYPED_)?TEST(?:_[FP])?\(\s*(\w+),\s*(\w+)\)", re.MULTILINE)
PYTHON_CLASS = re.compile(r"^class (\w+)", re.MULTILINE)
PYTHON_TEST = re.compile(r"^    def (test_\w+)", re.MULTILINE)
HEADING = re.compile(r"^# (.+)$", re.MULTILINE)
QUOTED = re.compile(r"`([^`]+)`")


def python_tests(text):
    starts = [(match.start(), match.group(1)) for match in PYTHON_CLASS.finditer(text)]
    for (start, name), end in zip(starts, [place for place, _ in starts[1:]] + [len(text)]):
        for test in PYTHON_TEST.findall(text, start, end):
            yield f"{name}.{test}"


def known_tests(folder):
    names = set()
    for path in folder.rglob("*"):
        if path.suffix == ".cpp":
            text = path.read_text(encoding="utf-8")
            names.update(f"{suite}.{name}" for suite, name in CPP_TEST.findall(text))
        elif path.suffix == ".py":
            names.update(python_tests(path.read_text(encoding="utf-8")))
        elif path.suffix == ".txt" and path.name != "CMakeLists.txt":
            text = path.read_text(encoding="utf-8", errors="replace")
            names.update(f"{path.name}: {heading}" for heading in HEADING.findall(text))
    return names


def rows(text):
    """(line, cells) of every row of a table with three columns, headings left out."""
    lines = text.splitlines()
    for number, line in enumerate(lines, 1):
        if not line.startswith("|") or set(line) <= set("|- "):
            continue
        if number < len(lines) and set(lines[number]) <= set("|- ") and lines[number]:
            continue
        yield number, [cell.strip() for cell in line.strip("|").split("|")]


def place_of(name, source):
    return ROOT / name if name.startswith("packaging/") else source / name


def problems_of_row(cells, source, tests):
    if len(cells) != 3:
        return [f"{len(cells)} columns, not 3"]
    operations, code, shown = (QUOTED.findall(cell) for cell in cells)
    places = {name: place_of(name, source) for name in code}
    found = [f"{name} doesn't exist" for name, place in places.items() if not place.is_file()]
    text = "".join(place.read_text(encoding="utf-8")
                   for place in places.values() if place.is_file())
    found += [f"{name} isn't in {', '.join(code)}" for name in operations
              if not re.search(rf"(?<!\w){re.escape(name)}(?!\w)", text)]
    found += [f"there is no test {name}" for name in shown if name not in tests]
    found += [f"no {what} is named" for what, names in (("code", code), ("test", shown))
              if not names]
    return found


def self_test():
    """A row that is wrong must be seen to be so."""
    here = pathlib.Path(__file__).parent
    tests = {"A.B"}
    good = ["runs `self_test`", "`proof_table.py`", "`A.B`"]
    assert not problems_of_row(good, here, tests)
    for at, wrong in ((0, "`no_such" "_name`"), (1, "`missing.py`"), (2, "`A.C`"), (2, "none")):
        assert problems_of_row(good[:at] + [wrong] + good[at + 1:], here, tests)
    assert list(python_tests("class A(B):\n    def test_c(self):\n")) == ["A.test_c"]


def main():
    self_test()
    tests = known_tests(ROOT / "tests")
    table = ROOT / "docs" / "proof.md"
    count, problems = 0, []
    for line, cells in rows(table.read_text(encoding="utf-8")):
        count += 1
        problems += [f"{line}: {found}" for found in problems_of_row(cells, ROOT / "src", tests)]
    print(*problems, sep="\n", end="\n" if problems else "")
    print(f"{count} rows checked against {len(tests)} tests, {len(problems)} problems")
    return 1 if problems or count < 100 else 0


if __name__ == "__main__":
    sys.exit(main())
