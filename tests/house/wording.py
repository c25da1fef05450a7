#!/usr/bin/env python3
"""Checks that files and recent commit messages stand on their own.

Whoever reads the code, its comments or its documents has nothing else: none of them may point to a
requirements document by number, name or allusion, or to a place on one developer's machine.
DEVELOPERS.md may. A block's "model specification" is a term of the subject and is meant.
"""

import re
import subprocess
import sys

# A licence is others' words.
EXEMPT = {"DEVELOPERS.md", "LICENSE"}
NUMBERED = re.compile(r"\bparts?\s+[1-9]\.\d", re.IGNORECASE)
DOCUMENT = re.compile(
    r"\bspec\.md\b|\b(?:as|than|per|by)\s+(?:the\s+)?spec(?:ified|ification)?\b"
    r"|\bthe\s+spec(?:ification)?s?\b(?!\s+(?:text|field|rectangle|column|of\s+(?:a|the)\b))"
    r"|\bshared/(?:spec|design|formats|examples|ambiguities)\b",
    re.IGNORECASE,
)
MACHINE = re.compile(r"(?<![\w.])/(?:work|farm)/[A-Za-z]|(?<![\w.])/(?:root|home)/[a-z]")
RULES = {
    "points to a numbered part of a requirements document": NUMBERED,
    "points to a requirements document": DOCUMENT,
    "names a place on one machine": MACHINE,
}
RECENT_COMMITS = 200


def problems_of(text):
    for number, line in enumerate(text.splitlines(), 1):
        for meaning, rule in RULES.items():
            match = rule.search(line)
            if match:
                yield f"{number}: “{match.group(0)}” {meaning}"


def git(*arguments):
    return subprocess.run(["git", *arguments], check=True, capture_output=True).stdout


def tracked_files():
    listing = git("ls-files", "-z", "--cached", "--others", "--exclude-standard")
    return [name for name in listing.decode().split("\0") if name]


def read_text(name):
    """The text of a file, or nothing if it holds binary data or is gone."""
    try:
        with open(name, "rb") as file:
            data = file.read()
    except OSError:
        return ""
    return "" if b"\0" in data else data.decode("utf-8", "replace")


def self_test():
    for bad in (
        "see Pa" "rt 2.1", "pa" "rts 3.2 and 3.3", "the sp" "ec says", "as sp" "ecified",
        "the specifi" "cation demands", "in /wo" "rk/x", "sha" "red/design.md",
    ):
        assert list(problems_of(bad)), bad
    for good in (
        "part of the drawing", "the model specification of a block", "a part 2 mm wide",
        "the specification text", "network/work/a", "specified by the user", "./build/work/a",
    ):
        assert not list(problems_of(good)), good


def main():
    self_test()
    problems = []
    files = tracked_files()
    for name in files:
        if name not in EXEMPT:
            problems += [f"{name}:{found}" for found in problems_of(name + "\n" + read_text(name))]
    messages = git("log", f"-{RECENT_COMMITS}", "--format=%h%x01%B%x02").decode("utf-8", "replace")
    for message in messages.split("\x02"):
        commit, _, text = message.strip().partition("\x01")
        problems += [f"commit {commit}:{found}" for found in problems_of(text)]
    for problem in problems:
        print(problem)
    print(f"{len(files)} files and the last commits read, {len(problems)} problems")
    return 1 if problems or not files else 0


if __name__ == "__main__":
    sys.exit(main())
