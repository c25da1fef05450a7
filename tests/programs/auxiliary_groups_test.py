#!/usr/bin/env python3
"""Tests of `vornik library groups`; usage as program_fixture.py tells."""

import shutil

from program_fixture import Install, main


class Groups(Install):
    """Each test works on a copy of the install."""

    def library(self, *arguments, install, status=0):
        return self.run_vornik("library", *arguments, "--install", install, status=status)

    def copy(self):
        name = "copy-" + self.id().rsplit(".", 1)[1]
        shutil.copytree(self.folder / "install", self.folder / name)
        return name

    def test_auxiliary_groups_are_listed_with_what_is_missing(self):
        install = self.copy()
        library = self.folder / install / "Datcom" / "zhllib"
        out, problem = self.library("groups", install=install)
        self.assertEqual(problem, "")
        lines = out.splitlines()
        self.assertEqual(lines[:2], ["仪表信号\tfzgn0001", "  电流表\tFG001001"])
        self.assertEqual(len([line for line in lines if not line.startswith(" ")]), 3)
        (library / "fzgn0001" / "FG001001.dwg").unlink()
        (library / "fzgn0003" / "fzgn0003.slb").unlink()
        out, _ = self.library("groups", install=install)
        self.assertIn("  电流表\tFG001001\tno drawing\n", out)
        self.assertIn("  备注框\tFG003004\tno slide\n", out)
        _, problem = self.library("groups", "--mend", "samples", install=install, status=1)
        self.assertIn("nothing to mend", problem)

    def test_library_without_groups_gets_some(self):
        install = self.copy()
        library = self.folder / install / "Datcom" / "zhllib"
        store = library / "zhlFzgn.qdp"
        kept = library / "zhlFzgn.qdp.bak"
        whole = store.read_bytes()
        kept.unlink(missing_ok=True)
        store.write_bytes(b"no tree")
        _, problem = self.library("groups", install=install, status=1)
        self.assertIn("zhlFzgn.qdp is damaged; --mend samples", problem)
        _, problem = self.library("groups", "--mend", "kept", install=install, status=1)
        self.assertIn("zhlFzgn.qdp.bak", problem)
        kept.write_bytes(whole)
        _, problem = self.library("groups", install=install, status=1)
        self.assertIn("--mend kept brings back what was saved before", problem)
        out, _ = self.library("groups", "--mend", "kept", install=install)
        self.assertIn("仪表信号\tfzgn0001\n", out)
        self.assertEqual((library / "zhlFzgn.qdp.damaged-1").read_bytes(), b"no tree")
        store.unlink()
        out, _ = self.library("groups", "--mend", "samples", install=install)
        self.assertIn("仪表信号\tfzgn0004\n  电流表\tFG004001\n", out)
        store.unlink()
        _, problem = self.library("groups", "--mend", "somehow", install=install, status=1)
        self.assertIn("--mend takes kept or samples", problem)


if __name__ == "__main__":
    main()
