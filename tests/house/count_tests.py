#!/usr/bin/env python3
"""Counts single tests in CTest's log of a run.

Usage: count_tests.py LastTest.log     prints "PASSED FAILED"

A GoogleTest program counts with its tests, any other with 1; a program that ends badly without
naming a failed test (a crash, a time-out) counts as one failure.
"""

import re
import sys

BLOCK = re.compile(r"^\d+/\d+ Testing: (.+?)$(.*?)^Test time = ", re.MULTILINE | re.DOTALL)
RESULT = re.compile(r"^Test (Passed|Failed)\.|^Test timeout", re.MULTILINE)
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
    # What follows a block's "Test time" line says how it ended.
    ends = [match.start() for match in BLOCK.finditer(log)] + [len(log)]
    for start, end in zip(ends, ends[1:]):
        block = log[start:end]
        ok = re.search(r"^Test Passed\.$", block, re.MULTILINE) is not None
        block_passed, block_failed = count_block(block, ok)
        passed += block_passed
        failed += block_failed
    return passed, failed


def main():
    with open(sys.argv[1], encoding="utf-8", errors="replace") as file:
        print(*count(file.read()))


if __name__ == "__main__":
    main()
