#!/usr/bin/env python3
"""Kills the program at random moments of a scripted session and looks at what is left.

Usage: kill_test.py PROGRAM [KILLS] [SEED]

The session draws numbered circles and circuits, takes some back and saves now and then, while the
library's models are changed by runs of their own. After each kill the drawing comes back with every
command that had told its end, the saved file and the library can be read, and nothing else is left
of the record.
"""

import json
import os
import pathlib
import random
import re
import shutil
import subprocess
import sys
import tempfile
import time

ROUNDS = 400
PROGRAM = os.path.abspath(sys.argv[1])
KILLS = int(sys.argv[2]) if len(sys.argv) > 2 else 20
SEED = int(sys.argv[3]) if len(sys.argv) > 3 else random.randrange(1 << 30)


def session_script():
    lines = []
    for number in range(1, ROUNDS + 1):
        lines += [f"CIRCLE {number},0 1", f'(princ "done {number} ")']
        if number % 7 == 0:
            lines += [f"CIRCLE 0,{number} 2", "U"]
        if number % 10 == 0:
            lines += ["(yczhlhz)", f"{number},100", f"(zhlselect {number % 20})", "S", "", ""]
        if number % 15 == 0:
            lines += ["SAVEAS work.dwg"]
        if number % 40 == 0:
            lines += ["UNDO BE", f"LINE 0,0 {number},5", "", "UNDO E"]
    return "(zhlmsgmk 1)\n" + "\n".join(lines) + "\n"


def run(*arguments, folder, status=0):
    done = subprocess.run([PROGRAM, *arguments], cwd=folder, capture_output=True, timeout=120)
    text = done.stdout.decode() + done.stderr.decode()
    if done.returncode != status:
        raise AssertionError(f"{arguments}: status {done.returncode}\n{text}")
    return done.stdout.decode()


def circles(folder, drawing):
    """Numbers of the circles of radius 1; those of radius 2 had been taken back but for a last."""
    objects = map(json.loads, run("dump", "--json", drawing, folder=folder).splitlines())
    found = [o for o in objects if o["type"] == "CIRCLE" and o["radius"] == 1]
    return [round(o["centre"][0]) for o in found]


def start(folder):
    transcript = open(folder / "transcript.txt", "wb")
    return subprocess.Popen([PROGRAM, "run", "--install", "install", "session.scr"], cwd=folder,
                            stdout=transcript, stderr=subprocess.STDOUT)


def told(folder):
    text = (folder / "transcript.txt").read_bytes().decode("utf-8", "replace")
    # What was typed is shown as well; the values follow it on a line of their own.
    return max(map(int, re.findall(r'(?<!princ ")done (\d+) ', text)), default=0)


def check_drawing(folder, done, report):
    records = folder / "install" / "User" / "Recovery"
    # Before its first autosave a session has nothing to lose, behind its end nothing is left.
    if done in (0, ROUNDS) and not any(records.glob("*[0-9]/*.record")):
        return
    run("run", "--recover", "--install", "install", "--output", "back.dwg", folder=folder)
    numbers = circles(folder, "back.dwg")
    assert numbers == list(range(1, len(numbers) + 1)), f"{report}: {numbers}"
    assert done <= len(numbers) <= done + 1, f"{report}: {done} told, {len(numbers)} came back"
    # An empty folder is that of a session killed while it made it.
    left = [one for one in records.iterdir() if any(one.iterdir())]
    assert not left, f"{report}: {left} stay"
    if (folder / "work.dwg").exists():
        saved = circles(folder, "work.dwg")
        assert saved == list(range(1, len(saved) + 1)), f"{report}: saved {saved}"


def kill_session(folder, longest, report):
    for old in folder.glob("work.dwg*"):
        old.unlink()
    process = start(folder)
    time.sleep(random.uniform(0, longest))
    process.kill()
    process.wait()
    check_drawing(folder, told(folder), report)


def kill_library_change(folder, longest, report):
    process = subprocess.Popen([PROGRAM, "library", "model", "4", "2", f"KILL-{report}",
                                "--install", "install"], cwd=folder, stdout=subprocess.DEVNULL,
                               stderr=subprocess.DEVNULL)
    time.sleep(random.uniform(0, longest))
    process.kill()
    process.wait()
    run("library", "verify", "--install", "install", folder=folder)


def duration(action):
    begun = time.monotonic()
    action()
    return time.monotonic() - begun


def main():
    random.seed(SEED)
    folder = pathlib.Path(tempfile.mkdtemp(prefix="vornik-kill-"))
    try:
        run("sample", "install", folder=folder)
        (folder / "session.scr").write_text(session_script(), encoding="utf-8")
        whole = duration(lambda: start(folder).wait())
        assert told(folder) == ROUNDS, "the session must come to its end when it isn't killed"
        change = duration(lambda: run("library", "model", "4", "2", "X", "--install", "install",
                                      folder=folder))
        for number in range(KILLS):
            report = f"seed {SEED}, kill {number}"
            try:
                kill_session(folder, whole, report)
                kill_library_change(folder, change, report)
            except AssertionError as error:
                raise AssertionError(f"{report}, {told(folder)} commands told") from error
            if number % 50 == 49:
                print(f"{number + 1} kills", flush=True)
    finally:
        shutil.rmtree(folder)
    print(f"{KILLS} kills of sessions and of library changes, seed {SEED}: nothing lost")


main()
