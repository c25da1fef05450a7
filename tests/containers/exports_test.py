#!/usr/bin/env python3
"""Checks the exported interface of the container family under the Microsoft ABI.

Usage: exports_test.py CLANG LLVM_UNDNAME SOURCE_ROOT [--print]

Compiles src/containers/exports.cpp for that ABI with C++98 rules and no library, and compares
- the exported members with exports.txt: each template's members, T for its argument, must be there
  for each of the listed element types, and nothing else;
- the slots of every virtual table with the order laid down in exports.txt.
What is missing or too many is printed by name. --print writes what the compiler has, for a review.
"""

import collections
import pathlib
import re
import subprocess
import sys
import tempfile

TOTAL = 4342


def compile_exports(clang, root, work):
    """The object file's bytes and the compiler's dump of the virtual tables."""
    target = pathlib.Path(work) / "exports.obj"
    command = [
        clang, "--target=x86_64-pc-windows-msvc", "-std=c++98", "-fms-extensions",
        "-fms-compatibility-version=15.00", "-nostdinc", "-isystem",
        str(root / "tests/containers/freestanding"), "-I", str(root / "src"),
        "-Xclang", "-fdump-vtable-layouts", "-c", str(root / "src/containers/exports.cpp"),
        "-o", str(target),
    ]
    done = subprocess.run(command, capture_output=True, text=True, check=True)
    return target.read_bytes(), done.stdout


def readable(undname, names):
    """The members' names as a person reads them."""
    done = subprocess.run([undname], input="\n".join(names) + "\n", capture_output=True, text=True,
                          check=True)
    return [block.split("\n")[1] for block in done.stdout.strip().split("\n\n")]


def argument_of(text, start):
    """The template argument that begins at `start`, up to its closing bracket."""
    depth, end = 1, start
    while depth:
        depth += {"<": 1, ">": -1}.get(text[end], 0)
        end += 1
    return text[start:end - 1]


def normalise(member):
    """(template, element type, member with T for the type)."""
    owner = re.search(r"(?:__cdecl |^const )(Tq\w+)<", member)
    template = owner.group(1)
    element = argument_of(member, owner.end()).strip()
    # The compare function's result is an int, whatever T is.
    text = member.replace("int (__cdecl *)", "compare (*)").replace(element, "T")
    text = re.sub(r"\bT\s*const\b", "T const", text)
    text = re.sub(r"\s*([&*])", r"\1", text)
    text = re.sub(r"(class|struct) (Tq\w+)<T>", r"\2<T>", text).replace("__cdecl ", "")
    return template, re.sub(r"\b(class|struct) ", "", element).replace(" ", ""), text


def read_expected(path):
    """exports.txt: sections of "template: element types", members below, and slots."""
    members, types, slots = {}, {}, {}
    lists = {}
    current = None
    for line in path.read_text(encoding="utf-8").splitlines():
        if not line.strip() or line.startswith("#"):
            continue
        if line.startswith("types "):
            name, values = line[6:].split(":")
            lists[name] = [v for word in values.split() for v in lists.get(word, [word])]
        elif line.startswith("template "):
            name, values = line[9:].split(":")
            types[name] = [v for word in values.split() for v in lists.get(word, [word])]
            current = members.setdefault(name, [])
        elif line.startswith("slots "):
            name, values = line[6:].split(":")
            base = values.split()
            slots[name] = [s for word in base
                           for s in (slots[word[1:]] if word.startswith("@") else [word])]
        else:
            current.append(line.strip())
    return members, types, slots


def actual_slots(dump):
    """Each class's own name with the names in its table, in order."""
    tables = {}
    for block in re.split(r"\n(?=VFTable )", dump):
        head = re.match(r"VFTable for (.*) \(\d+ entries\)\.", block)
        if not head:
            continue
        owner = re.findall(r"'(\w+)'", head.group(1))[-1]
        names = []
        for line in re.findall(r"^ *\d+ \| (.*)$", block, re.MULTILINE):
            if line.endswith("RTTI"):
                continue
            name = re.search(r"::(~?\w+|operator\[\])\(", line).group(1)
            if name == "Sort":
                name = "Sort(bool)" if "Sort(bool)" in line else "Sort(compare)"
            names.append("destructor" if name.startswith("~") else name)
        tables.setdefault(owner, set()).add(tuple(names))
    return tables


def main():
    clang, undname, root = sys.argv[1], sys.argv[2], pathlib.Path(sys.argv[3])
    with tempfile.TemporaryDirectory() as work:
        object_file, dump = compile_exports(clang, root, work)
    names = sorted({m.decode() for m in re.findall(rb'/EXPORT:"?([^", ]+)', object_file)})
    found = collections.defaultdict(set)
    for member in readable(undname, names):
        template, element, text = normalise(member)
        found[template, element].add(text)
    if "--print" in sys.argv:
        shown = set()
        for (template, element), texts in sorted(found.items()):
            if template not in shown and len(texts) > 1:
                print(f"template {template}: {element}", *sorted(texts), sep="\n  ")
                shown.add(template)
        return 0

    members, types, slots = read_expected(root / "tests/containers/exports.txt")
    problems = []
    wanted = {}
    for template, elements in types.items():
        for element in elements:
            listed = {m for m in members[template] if " only " not in m}
            listed |= {m.split(" only ")[0] for m in members[template]
                       if " only " in m and element in m.split(" only ")[1].split()}
            wanted[template, element] = listed
    for key in sorted(set(wanted) | set(found)):
        name = f"{key[0]}<{key[1]}>"
        problems += [f"missing: {name}: {m}" for m in sorted(wanted.get(key, set()) - found[key])]
        problems += [f"too many: {name}: {m}" for m in sorted(found[key] - wanted.get(key, set()))]
    for template in types:
        count = sum(len(found[template, element]) for element in types[template])
        print(f"{template}: {count} exported members for {len(types[template])} element types")
    tables = actual_slots(dump)
    for template, order in slots.items():
        for table in tables.get(template, {()}):
            if list(table) != order:
                problems.append(f"slots of {template}: {list(table)}\n  laid down: {order}")
    if len(names) != TOTAL:
        problems.append(f"{len(names)} members are exported, not {TOTAL}")
    print(*problems, sep="\n")
    print(f"{len(names)} exported members")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
