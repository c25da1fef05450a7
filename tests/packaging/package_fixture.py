"""What tests of packages share: making one, and a walk through the program that it brings.

Test programs are called with BUILD_FOLDER [--assertions] [-- UNITTEST_ARGUMENT...]. With
--assertions the build's programs may name the sources that they were made from.
"""

import json
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
BUILD = None
ASSERTIONS = False
# What a user's machine has on its path: nothing of ours.
ENVIRONMENT = {name: value for name, value in os.environ.items()
               if name not in ("LD_LIBRARY_PATH", "WINEPATH", "DESTDIR")}
ENVIRONMENT.update(PATH="/usr/bin:/bin", LANG="zh_CN.UTF-8", LC_ALL="C.UTF-8")


def run(*command, cwd=None, status=0, text="", seconds=300):
    """The command's standard output; its status must be this one."""
    done = subprocess.run([str(word) for word in command], cwd=cwd, env=ENVIRONMENT,
                          input=text.encode(), capture_output=True, timeout=seconds)
    out = done.stdout.decode("utf-8", "replace")
    if done.returncode != status:
        problem = done.stderr.decode("utf-8", "replace")
        raise AssertionError(f"{command}: status {done.returncode}, not {status}\n{out}{problem}")
    return out


def make_package(generator, folder):
    """The package that CPack makes of the build, in a folder of its own."""
    run("cpack", "-G", generator, "-B", folder, "--config", BUILD / "CPackConfig.cmake", cwd=BUILD)
    made = [path for path in folder.iterdir() if path.is_file()]
    if len(made) != 1:
        raise AssertionError(f"{generator}: one package is expected, not {made}")
    return made[0]


class Package(unittest.TestCase):
    """A folder of the test's own, with a blank and Chinese letters in its name."""

    @classmethod
    def setUpClass(cls):
        cls.temporary = tempfile.TemporaryDirectory(prefix="vornik-")
        cls.folder = pathlib.Path(cls.temporary.name) / "主回路 package"
        cls.folder.mkdir()

    @classmethod
    def tearDownClass(cls):
        cls.temporary.cleanup()

    def check_walk(self, *program, install=None):
        """From the program alone to a placed, plotted and counted row of circuits."""
        work = self.folder / "work"
        work.mkdir(exist_ok=True)
        if not install:
            run(*program, "sample", "mine", cwd=work)
            install = "mine"
        self.assertEqual(run(*program, "library", "verify", "--install", install, cwd=work), "")
        run(*program, "place", "--install", install, "--circuits", "1,13,3-5",
            "--output", "row.dwg", cwd=work)
        run(*program, "plot", "row.dwg", "--output", "row.pdf", cwd=work)
        self.assertIn("QF1", run("pdftotext", "row.pdf", "-", cwd=work))
        run(*program, "plot", "row.dwg", "--output", "row.png", "--width", "400", cwd=work)
        self.assertTrue((work / "row.png").read_bytes().startswith(b"\x89PNG"))
        dump = run(*program, "dump", "row.dwg", "--json", cwd=work)
        kinds = [json.loads(line)["type"] for line in dump.splitlines()]
        self.assertGreater(kinds.count("INSERT"), 10)
        self.assertIn(",CM1", run(*program, "bom", "row.dwg", cwd=work))

    def check_no_machine_path(self, folder):
        """Nothing that is shipped says where it was built or made."""
        places = [str(BUILD).encode(), self.temporary.name.encode()]
        if not ASSERTIONS:
            places.append(str(ROOT).encode())
        looked_at = 0
        for path in folder.rglob("*"):
            if path.is_file():
                looked_at += 1
                data = path.read_bytes()
                for place in places:
                    self.assertNotIn(place, data, path)
                    self.assertNotIn(place.decode().encode("utf-16-le"), data, path)
        self.assertGreater(looked_at, 5)


def main():
    global BUILD, ASSERTIONS
    arguments = sys.argv[1:]
    rest = []
    if "--" in arguments:
        at = arguments.index("--")
        arguments, rest = arguments[:at], arguments[at + 1:]
    BUILD = pathlib.Path(arguments[0]).resolve()
    ASSERTIONS = "--assertions" in arguments
    unittest.main(module="__main__", argv=[sys.argv[0]] + rest)
