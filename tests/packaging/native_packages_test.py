#!/usr/bin/env python3
"""The native install, wherever it is put, and the Debian package `vornik`.

Usage: as package_fixture.py tells.
"""

import gzip
import re
import subprocess
import unittest

import package_fixture
from package_fixture import Package, main, make_package, run


class AnInstallWhereverItIsPut(Package):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.prefix = cls.folder / "first place"
        run("cmake", "--install", package_fixture.BUILD, "--prefix", cls.prefix, "--strip")

    def test_works_from_another_folder_after_it_was_moved(self):
        moved = self.folder / "second place"
        self.prefix.rename(moved)
        try:
            self.check_walk(moved / "bin" / "vornik")
        finally:
            moved.rename(self.prefix)

    def test_loads_the_libraries_that_came_with_it(self):
        libraries = self.prefix / "lib" / "vornikplan10"
        for program in (self.prefix / "bin" / "vornik", libraries / "libVornikplan10.so"):
            loaded = run("ldd", program)
            self.assertIn(f"libvornik_platform.so => {self.prefix}/", loaded)
            self.assertNotIn("not found", loaded)

    def test_exports_what_other_modules_link_to(self):
        symbols = run("nm", "--dynamic", "--defined-only", "--demangle",
                      self.prefix / "lib" / "vornikplan10" / "libVornikplan10.so")
        self.assertIn("acrxEntryPoint", symbols)

    def test_names_no_folder_of_the_machine_that_built_it(self):
        self.check_no_machine_path(self.prefix)


class TheDebianPackage(Package):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        packages = cls.folder / "packages"
        cls.package = make_package("DEB", packages)
        cls.root = cls.folder / "root"
        run("dpkg-deb", "-x", cls.package, cls.root)

    def field(self, name):
        return run("dpkg-deb", "--field", self.package, name).strip()

    def test_is_named_for_its_version_and_architecture(self):
        self.assertRegex(self.package.name, r"^vornik_\d+\.\d+\.\d+-1_amd64\.deb$")
        self.assertEqual(self.field("Package"), "vornik")
        self.assertEqual(self.field("Architecture"), "amd64")

    def test_depends_on_the_libraries_that_it_uses_and_on_no_others(self):
        names = {re.split(r"[ (:]", entry.strip())[0] for entry in self.field("Depends").split(",")}
        self.assertEqual(names, {"libc6", "libcairo2", "libgcc-s1", "libstdc++6", "zlib1g"})
        self.assertRegex(self.field("Depends"), r"libstdc\+\+6 \(>= \d+")

    def test_describes_itself(self):
        summary, *text = self.field("Description").splitlines()
        self.assertLess(len(summary), 80)
        self.assertGreater(len(text), 2)
        self.assertIn("@", self.field("Maintainer"))
        self.assertEqual(self.field("Section"), "graphics")
        self.assertGreater(int(self.field("Installed-Size")), 1000)

    def test_works_unpacked(self):
        self.check_walk(self.root / "usr" / "bin" / "vornik")

    def test_runs_the_example_script_that_it_brings(self):
        program = self.root / "usr" / "bin" / "vornik"
        run(program, "sample", "example", cwd=self.folder)
        run(program, "run", "--install", "example", "--output", "example.dxf",
            self.root / "usr/share/doc/vornik/examples/main_circuits.scr", cwd=self.folder)
        self.assertIn(b"INSERT", (self.folder / "example.dxf").read_bytes())

    def test_has_manual_copyright_and_change_log(self):
        share = self.root / "usr" / "share"
        copyright_text = (share / "doc/vornik/copyright").read_text("utf-8")
        for words in ("1999 Arphic Technology", "ARPHIC PUBLIC LICENSE", "Hershey", "MERCHANTABILITY"):
            self.assertIn(words, copyright_text)
        log = gzip.decompress((share / "doc/vornik/changelog.Debian.gz").read_bytes()).decode()
        self.assertTrue(log.startswith(f"vornik ({self.field('Version')})"), log)
        manual = gzip.decompress((share / "man/man1/vornik.1.gz").read_bytes()).decode()
        program = self.root / "usr" / "bin" / "vornik"
        for command in re.findall(r"^  (\w+) ", run(program, "--help"), re.MULTILINE):
            self.assertRegex(manual, rf"(?m)^(\\fB|\.B ){command}\b")

    def test_manual_is_formatted_without_warnings(self):
        path = self.root / "usr/share/man/man1/vornik.1.gz"
        done = subprocess.run(["groff", "-man", "-Tutf8", "-ww", "-z"], capture_output=True,
                              input=gzip.decompress(path.read_bytes()), check=True)
        self.assertEqual(done.stderr.decode(), "")

    def test_holds_stripped_programs_and_plain_permissions(self):
        listing = run("dpkg-deb", "--contents", self.package)
        modes = {line.split()[0] for line in listing.splitlines()}
        self.assertEqual(modes, {"drwxr-xr-x", "-rwxr-xr-x", "-rw-r--r--"})
        self.assertEqual({line.split()[1] for line in listing.splitlines()}, {"root/root"})
        for path in ("bin/vornik", "lib/vornikplan10/libvornik_platform.so"):
            self.assertNotIn(".symtab", run("readelf", "--sections", self.root / "usr" / path))

    def test_names_no_folder_of_the_machine_that_built_it(self):
        self.check_no_machine_path(self.root)


if __name__ == "__main__":
    main()
