#!/usr/bin/env python3
"""Runs clang-tidy on what changed.

Usage: tools/tidy.py BUILD_FOLDER [--all]

"Changed" are the files that differ from the main branch; on the main branch itself those of the
last day's commits. A changed header is looked at through the first source that includes it. Sources
that were clean with the same contents, headers and settings before are skipped.
"""

import concurrent.futures
import hashlib
import json
import os
import pathlib
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parents[1]
OURS = ("src/", "tests/", "fuzz/", "bench/")


def git(*arguments):
    done = subprocess.run(["git", *arguments], cwd=ROOT, capture_output=True, text=True)
    return done.stdout.split("\n") if done.returncode == 0 else []


def base_commit():
    head = git("rev-parse", "HEAD")[0]
    for name in ("origin/main", "main"):
        base = (git("merge-base", "HEAD", name) or [""])[0]
        if base and base != head:
            return base
    return (git("rev-list", "-1", "--before=1 day ago", "HEAD") or [""])[0]


def changed_files():
    base = base_commit()
    committed = git("diff", "--name-only", base) if base else git("ls-files")
    return {name for name in committed + git("ls-files", "--others", "--exclude-standard") if name}


def relative(path):
    return os.path.relpath(path, ROOT)


def dependencies(build, commands):
    """Source -> our own headers that it includes, as the build has noted them."""
    by_object = {}
    current = None
    listing = subprocess.run(["ninja", "-C", build, "-t", "deps"], capture_output=True, text=True)
    for line in listing.stdout.splitlines():
        if line and not line[0].isspace():
            current = by_object.setdefault(line.split(":")[0], set())
        elif line.strip() and current is not None:
            path = relative(os.path.join(build, line.strip()))
            if path.startswith(OURS):
                current.add(path)
    result = {}
    for command in commands:
        source = relative(os.path.join(command["directory"], command["file"]))
        if source.startswith(OURS) and "output" in command:
            result[source] = by_object.get(command["output"], set()) - {source}
    return result


def sources_of(build):
    with open(os.path.join(build, "compile_commands.json"), encoding="utf-8") as file:
        commands = json.load(file)
    for command in commands:  # older CMake doesn't write "output"
        words = command["command"].split()
        command.setdefault("output", words[words.index("-o") + 1])
    return dependencies(build, commands)


def selection(sources, changed):
    if ".clang-tidy" in changed:
        return sorted(sources)
    chosen = {source for source in sources if source in changed}
    for header in sorted(changed):
        if not header.endswith((".h", ".inc")):
            continue
        users = sorted(source for source, headers in sources.items() if header in headers)
        if users and not chosen.intersection(users):
            chosen.add(users[0])
    return sorted(chosen)


def fingerprint(source, headers):
    digest = hashlib.sha256()
    for name in [".clang-tidy", source, *sorted(headers)]:
        path = ROOT / name
        digest.update(path.read_bytes() if path.exists() else b"")
    return digest.hexdigest()


def tidy(build, source):
    done = subprocess.run(
        ["clang-tidy", "-p", build, "--quiet", source], cwd=ROOT, capture_output=True, text=True)
    return done.returncode == 0, done.stdout


def main():
    build = os.path.abspath(sys.argv[1])
    sources = sources_of(build)
    chosen = sorted(sources) if "--all" in sys.argv else selection(sources, changed_files())
    clean = pathlib.Path(build) / "tidy"
    clean.mkdir(exist_ok=True)
    prints = {source: clean / fingerprint(source, sources[source]) for source in chosen}
    waiting = [source for source in chosen if not prints[source].exists()]
    failures = 0
    said = time.monotonic()
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        runs = {pool.submit(tidy, build, source): source for source in waiting}
        for number, run in enumerate(concurrent.futures.as_completed(runs), 1):
            source = runs[run]
            ok, output = run.result()
            if ok:
                prints[source].touch()
            else:
                failures += 1
                print(f"{source}:\n{output}", flush=True)
            if time.monotonic() - said > 15:
                said = time.monotonic()
                print(f"  clang-tidy {number} of {len(waiting)}", flush=True)
    print(f"{len(chosen)} changed sources, {len(waiting)} looked at now, {failures} with findings")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
