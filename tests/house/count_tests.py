#!/usr/bin/env python3
"""Counts single tests in CTest's log of a run.

Usage: count_tests.py LastTest.log     prints "PASSED FAILED"

A GoogleTest program counts with its tests, any other with 1; a program that ends badly without
naming a failed test (a crash, a time-out) counts as one failure.
"""

import re
import sys

BLOCK = re.compile(r"^\d+/\d+ Testing: ", re.MULTILINE)
PASSED = re.compile(r"^\[  PASSED  \] (\d+) test", re.MULTILINE)
FAILED = re.compile(r"^\[  FAILED  \] (\d+) tests?, listed below", re.MULTILINE)


def count_block(text, ok):
    """(passed, failed) of one program; of a repeated run the last summary counts."""
    passed = [int(n) for n in PASSED.findall(text)]
    failed = [int(n) for n in FAILED.findall(text)]
    if not passed and not failed:
        return (1, 0) if ok else (0, 1)
    failures = max(failed, default=0)
    return (passed[-1] if passed else 0, failures if ok or failures else 1)


def count(log):
    passed = failed = 0
    starts = [match.start() for match in BLOCK.finditer(log)] + [len(log)]
    for start, end in zip(starts, starts[1:]):
        block = log[start:end]
        ok = re.search(r"^Test Passed\.$", block, re.MULTILINE) is not None
        block_passed, block_failed = count_block(block, ok)
        passed += block_passed
        failed += block_failed
    return passed, failed


def self_test():
    """A failure, a crash and a time-out must be counted as what they are."""
    def log(*programs):
        blocks = [
            f"{number}/9 Testing: p{number}\nOutput:\n{output}\nTest time =   0.01 sec\n"
            f"------\n{end}\n------\n\n"
            for number, (output, end) in enumerate(programs, 1)
        ]
        return "Start testing\n" + "".join(blocks)

    green = ("[  PASSED  ] 7 tests.\n[  PASSED  ] 7 tests.", "Test Passed.")
    red = ("[  PASSED  ] 3 tests.\n[  FAILED  ] 2 tests, listed below:", "Test Failed.")
    crash = ("[ RUN      ] A.B", "Test Failed.")
    late_crash = ("[  PASSED  ] 4 tests.", "Test Failed.")
    assert count(log(green)) == (7, 0)
    assert count(log(red, green)) == (10, 2)
    assert count(log(crash)) == (0, 1)
    assert count(log(late_crash)) == (4, 1)
    assert count(log(("done", "Test Passed."), ("slow", "Test timeout computed to be: 9"))) == (1, 1)


def main():
    self_test()
    with open(sys.argv[1], encoding="utf-8", errors="replace") as file:
        print(*count(file.read()))


if __name__ == "__main__":
    main()
