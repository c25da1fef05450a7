"""What tests of the program vornik share: calling it, and an install with a drawing.

Test programs are called with PROGRAM [LAUNCHER] [-- UNITTEST_ARGUMENT...]. With a launcher
(tests/windows/wine.sh) the Windows program is tested.
"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

DATA = pathlib.Path(__file__).resolve().parents[1] / "data" / "dwg"
COMMAND = []
ROW = ('("05" "ZHL1003" "CM1-63 25A" 0 -10 0 "F002" "" 0 -17.5 0 "&&&&" 0 -8 0 -10 '
       '"TEXT" "QF1" 2 2.5 -10 -22 0)')
CHAIN = """(zhlmsgmk 1)
(yczhlhz)
0,0
(zhlselect 3)
S
(zhlselect 7)
S
(zhlitem 0 0)
F


"""


def vornik(*arguments, cwd, text="", status=0):
    """Runs the program; the answer's standard output and error."""
    done = subprocess.run(COMMAND + list(arguments), cwd=cwd, input=text.encode(),
                          capture_output=True, timeout=300)
    out, problem = done.stdout.decode("utf-8"), done.stderr.decode("utf-8")
    if done.returncode != status:
        raise AssertionError(f"{arguments}: status {done.returncode}, not {status}\n{out}{problem}")
    return out, problem


class Install(unittest.TestCase):
    """A sample install and a drawing of two circuits with an auxiliary symbol, made once."""

    @classmethod
    def setUpClass(cls):
        cls.folder = pathlib.Path(tempfile.mkdtemp(prefix="vornik-"))
        vornik("sample", "install", cwd=cls.folder)
        (cls.folder / "chain.scr").write_text(CHAIN, encoding="utf-8")
        vornik("run", "--install", "install", "--output", "chain.dwg", "chain.scr", cwd=cls.folder)

    @classmethod
    def tearDownClass(cls):
        shutil.rmtree(cls.folder)

    def run_vornik(self, *arguments, **options):
        return vornik(*arguments, cwd=self.folder, **options)

    def tool(self, *arguments):
        done = subprocess.run(arguments, cwd=self.folder, capture_output=True, check=True)
        self.assertEqual(done.stderr.decode(), "")
        return done.stdout.decode("utf-8")

    def bytes_of(self, name):
        return (self.folder / name).read_bytes()


def main():
    arguments = sys.argv[1:]
    rest = []
    if "--" in arguments:
        at = arguments.index("--")
        arguments, rest = arguments[:at], arguments[at + 1:]
    program, launcher = arguments[0], arguments[1:]
    COMMAND.extend(launcher + [program])
    os.environ["LANG"] = "zh_CN.UTF-8"
    unittest.main(argv=[sys.argv[0]] + rest)
