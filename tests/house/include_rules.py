#!/usr/bin/env python3
"""Checks from the #include lines that every folder of src/ leans only on what lies below it.

Usage: include_rules.py [SOURCE_ROOT]

The layers are the table RULES; docs/architecture.md draws them. Includes are written from src/ as
root, so that the first folder (below embedded/ the first two) of a path names its layer.
"""

import pathlib
import re
import sys

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.MULTILINE)

# Folder -> folders it may include, besides itself and the headers of the system.
RULES = {
    "containers": set(),
    "platform": set(),
    "module": {"platform"},
    "engine": {"platform", "module"},
    "store": {"platform", "module", "engine"},
    "auxiliary": {"platform", "module"},
    "controls": {"platform", "module", "auxiliary", "resources"},
    "editor": {"platform", "module", "store", "resources"},
    "library_window": {
        "platform", "module", "store", "auxiliary", "controls", "editor", "resources",
    },
    "host": {"platform", "module", "engine", "store", "auxiliary", "library_window"},
    "resources": set(),
    "embedded/base": set(),
    "embedded/framework": {"platform", "embedded/base"},
    "embedded/drafting": {"platform", "embedded/base"},
    "embedded/slide_store": {"platform", "embedded/base"},
    "embedded/common_funcs": {
        "platform", "embedded/base", "embedded/drafting", "embedded/slide_store",
    },
    "embedded/db_object": {"platform", "embedded/base", "embedded/drafting", "containers"},
}
UNBOUND = {"programs"}

# A file with more freedom than its folder.
EXCEPTIONS = {"containers/exports.cpp": {"platform"}}

# Folders whose code must not even know the system it runs on, and the one door through which the
# framework's window headers reach it.
STANDARD_ONLY = {"containers", "platform"}
SYSTEM_DOOR = "platform/framework_system.h"
SYSTEM_HEADER = re.compile(r"^(windows|commctrl|unistd|fcntl|sys/|cairo)")


def layer_of(path):
    parts = pathlib.PurePosixPath(path).parts
    return "/".join(parts[:2]) if parts[0] == "embedded" else parts[0]


def problem(source, bracket, included):
    """What is wrong with one include, or None."""
    layer = layer_of(source)
    if bracket == "<":
        if layer in STANDARD_ONLY and source != SYSTEM_DOOR and SYSTEM_HEADER.match(included):
            return f"{layer} stands on the standard library alone"
        return None
    if "/" not in included:
        return 'is written from src/ as root ("folder/file.h")'
    if ".." in pathlib.PurePosixPath(included).parts:
        return "leads upwards; includes are written from src/ as root"
    target = layer_of(included)
    allowed = RULES[layer] | {layer} | EXCEPTIONS.get(source, set())
    return None if target in allowed else f"{layer} may not include {target}"


def check(root):
    problems = []
    count = 0
    for path in sorted(root.rglob("*")):
        source = path.relative_to(root).as_posix()
        if path.suffix not in {".h", ".cpp", ".inc", ".rc"}:
            continue
        layer = layer_of(source)
        if layer in UNBOUND:
            continue
        if layer not in RULES:
            problems.append(f"{source}: the folder {layer} has no rule")
            continue
        for bracket, included in INCLUDE.findall(path.read_text(encoding="utf-8")):
            count += 1
            found = problem(source, bracket, included)
            if found:
                problems.append(f"{source}: {included}: {found}")
    return problems, count


def self_test():
    """The rule book must refuse what it is there to refuse."""
    assert problem("engine/a.cpp", '"', "embedded/base/text.h")
    assert problem("engine/a.cpp", '"', "store/store.h")
    assert problem("engine/a.cpp", '"', "row.h")
    assert problem("engine/a.cpp", '"', "engine/../store/store.h")
    assert problem("embedded/drafting/x.h", '"', "embedded/framework/y.h")
    assert problem("platform/acad.h", "<", "windows.h")
    assert problem("containers/a.h", '"', "platform/acad.h")
    assert not problem("containers/exports.cpp", '"', "platform/acad.h")
    assert not problem("engine/a.cpp", '"', "engine/row.h")
    assert not problem("store/a.cpp", '"', "engine/row.h")
    assert not problem("embedded/common_funcs/a.cpp", '"', "embedded/drafting/database/database.h")


def main():
    self_test()
    here = pathlib.Path(__file__).resolve()
    root = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else here.parents[2] / "src"
    problems, count = check(root)
    for line in problems:
        print(line)
    if not problems and count == 0:
        problems.append("no include found: nothing was checked")
        print(problems[0])
    print(f"{count} includes checked, {len(problems)} problems")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
