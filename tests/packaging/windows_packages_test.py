#!/usr/bin/env python3
"""The Windows zip and installer under Wine: unpacked, installed, used, renewed and removed.

Usage: as package_fixture.py tells.
"""

import os
import pathlib
import re
import subprocess
import sys
import time
import unittest
import zipfile

import package_fixture
from package_fixture import ROOT, Package, main, make_package, run

WINE = ROOT / "tests" / "windows" / "wine.sh"
SESSION = ROOT / "tests" / "windows" / "session.sh"
# What every Windows has. All else must be in the package.
SYSTEM = {"advapi32", "comctl32", "comdlg32", "gdi32", "kernel32", "msimg32", "msvcrt", "ole32",
          "shell32", "shlwapi", "user32", "uxtheme", "winspool", "version"}
LIBRARY = ("system/Fah.dwg", "Datcom/zhllib/zhllib.qdp", "Datcom/zhllib/zhllib.slb",
           "Datcom/ARPHICPL.TXT", "Dwglib/dwgdir.dab", "Dwglib/Dqbl0012/ZHL1003.dwg")
LICENCES = {"Vornikplan10.txt": "MIT License", "ARPHICPL.TXT": "ARPHIC PUBLIC LICENSE",
            "GPL-3": "GNU GENERAL PUBLIC LICENSE", "compiler-runtime.txt": "GCC",
            "mingw-w64.txt": "mingw-w64", "zlib.txt": "Jean-loup Gailly", "fonts.txt": "Hershey"}
UNINSTALL_KEY = r"HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Vornikplan10"


def files_below(folder):
    return {path.relative_to(folder).as_posix() for path in folder.rglob("*") if path.is_file()}


def wait_until_gone(path):
    """An uninstaller goes on in a copy of itself when its first process has ended."""
    for _ in range(300):
        if not path.exists():
            return
        time.sleep(0.1)
    raise AssertionError(f"{path} is still there")


class Windows(Package):
    def check_desktop(self, folder):
        """The drafting desktop comes up with the module, obeys a script, and ends."""
        if not (folder / "drafting.exe").exists():
            return
        work = self.folder / "work"
        work.mkdir(exist_ok=True)
        saved = work / "desktop.dwg"
        saved.unlink(missing_ok=True)
        script = work / "desktop.scr"
        script.write_text("LINE 0,0 10,0 \n(zhlmsgmk 1)\nSAVEAS\ndesktop.dwg\nQUIT\n", "utf-8")
        run(WINE, folder / "drafting.exe", "--install", folder / "Library", "--script", script,
            cwd=work, seconds=60)
        self.assertIn("LINE", run(WINE, folder / "vornik.exe", "dump", "desktop.dwg", cwd=work))
        # Only the module knows the function that sets the mark.
        self.assertIn("ZhlkMessageMark=1", (folder / "Library/User/information.txt").read_text())


class TheZip(Windows):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        package = make_package("ZIP", cls.folder / "packages")
        cls.name = package.name
        with zipfile.ZipFile(package) as archive:
            archive.extractall(cls.folder / "unpacked")
        (cls.root,) = (cls.folder / "unpacked").iterdir()

    def test_unpacks_into_one_folder_of_its_own_name(self):
        self.assertRegex(self.name, r"^Vornikplan10-\d+\.\d+\.\d+-windows-x64\.zip$")
        self.assertEqual(self.root.name + ".zip", self.name)

    def test_holds_program_module_library_and_licences(self):
        names = files_below(self.root)
        for name in ("vornik.exe", "Vornikplan10.arx", "vornik_platform.dll", "README.txt"):
            self.assertIn(name, names)
        for name in LIBRARY:
            self.assertIn("Library/" + name, names)
        for name, words in LICENCES.items():
            self.assertIn(words, (self.root / "licences" / name).read_text("utf-8"), name)

    def test_readme_opens_well_in_every_editor(self):
        data = (self.root / "README.txt").read_bytes()
        self.assertTrue(data.startswith(b"\xef\xbb\xbf"))
        self.assertNotRegex(data, rb"[^\r]\n")
        self.assertNotIn(b"@", data)
        for name in re.findall(rb"[\w.-]+\.(?:exe|arx|html)\b", data):
            found = name.decode() in {path.name for path in self.root.rglob("*")}
            self.assertTrue(found or self.is_to_come(name.decode()), name)

    def is_to_come(self, name):
        """What only some builds have: the desktop, and guides without a converter to pages."""
        source = {"drafting.exe": ROOT / "src/programs/desktop"}.get(
            name, ROOT / "docs" / name.replace(".html", ".md"))
        return not source.exists()

    def test_documents_are_pages_whose_links_and_pictures_are_there(self):
        pages = list((self.root / "docs").glob("*.html"))
        self.assertGreater(len(pages), 2)
        for page in pages:
            text = page.read_text("utf-8")
            self.assertIn('charset="utf-8"', text)
            for link in re.findall(r'(?:href|src)="([^"#:]+)["#]', text):
                self.assertTrue((page.parent / link).exists(), f"{page.name}: {link}")

    def test_needs_no_library_that_windows_does_not_have(self):
        ours = {name.lower() for name in files_below(self.root)}
        binaries = [path for path in self.root.iterdir() if path.suffix in (".exe", ".dll", ".arx")]
        self.assertGreater(len(binaries), 6)
        for path in binaries:
            imports = re.findall(r"DLL Name: (\S+)", run("x86_64-w64-mingw32-objdump", "-p", path))
            for name in imports:
                self.assertTrue(name.lower() in ours or name.lower().split(".")[0] in SYSTEM,
                                f"{path.name} needs {name}")

    def test_works_in_an_empty_folder(self):
        self.check_walk(WINE, self.root / "vornik.exe")

    def test_the_sample_library_works_where_it_is(self):
        library = self.folder / "Library"
        run("cp", "-r", self.root / "Library", library)
        self.check_walk(WINE, self.root / "vornik.exe", install="../Library")

    def test_the_desktop_starts(self):
        self.check_desktop(self.root)

    def test_names_no_folder_of_the_machine_that_built_it(self):
        self.check_no_machine_path(self.root)


class AnInstallOverAnother(Windows):
    def test_keeps_the_library_that_is_there(self):
        prefix = self.folder / "place"
        run("cmake", "--install", package_fixture.BUILD, "--prefix", prefix)
        mine = prefix / "Library" / "Datcom" / "zhllib" / "zhllib.qdp"
        mine.write_text("mine")
        (prefix / "vornik.exe").unlink()
        run("cmake", "--install", package_fixture.BUILD, "--prefix", prefix)
        self.assertEqual(mine.read_text(), "mine")
        self.assertTrue((prefix / "vornik.exe").exists())


class TheInstaller(Windows):
    """Steps of one story, each of which leaves the prefix as it was."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.setup = make_package("NSIS", cls.folder / "packages")
        user = cls.user_folder()
        cls.place = user / "AppData/Local/Programs/Vornikplan10"
        cls.menu = user / "AppData/Roaming/Microsoft/Windows/Start Menu/Programs/Vornikplan10"
        run("rm", "-rf", cls.place, cls.menu)  # of a run that was killed

    @staticmethod
    def user_folder():
        users = pathlib.Path(os.environ["WINEPREFIX"]) / "drive_c" / "users"
        (user,) = (path for path in users.iterdir() if path.name != "Public")
        return user

    def setUp(self):
        self.assertFalse(self.place.exists())
        run(WINE, self.setup, "/S")

    def tearDown(self):
        if (self.place / "uninstall.exe").exists():
            self.uninstall()
        run("rm", "-rf", self.place)

    def uninstall(self):
        run(WINE, self.place / "uninstall.exe", "/S")
        wait_until_gone(self.place / "uninstall.exe")
        wait_until_gone(self.menu)

    def registered(self, name):
        done = subprocess.run([WINE, "reg", "query", UNINSTALL_KEY, "/v", name],
                              capture_output=True, check=False)
        found = re.search(rf"{name}\s+REG_\w+\s+(.*\S)", done.stdout.decode("utf-8", "replace"))
        return found.group(1) if found else None

    def test_installs_for_one_user_without_an_administrator(self):
        manifest = self.setup.read_bytes()
        self.assertIn(b'requestedExecutionLevel level="asInvoker"', manifest)
        self.assertNotIn(b"requireAdministrator", manifest)
        names = files_below(self.place)
        for name in ("vornik.exe", "Vornikplan10.arx", "licences/ARPHICPL.TXT",
                     "Library/Datcom/zhllib/zhllib.qdp"):
            self.assertIn(name, names)

    def test_the_program_works_where_it_was_installed(self):
        self.check_walk(WINE, self.place / "vornik.exe")
        self.check_walk(WINE, self.place / "vornik.exe", install=self.place / "Library")
        self.check_desktop(self.place)

    def test_windows_knows_it_and_the_menu_shows_it(self):
        self.assertEqual(self.registered("DisplayName"), "Vornikplan10")
        self.assertRegex(self.registered("DisplayVersion"), r"^\d+\.\d+\.\d+$")
        self.assertIn("uninstall.exe", self.registered("UninstallString"))
        entries = {path.stem for path in self.menu.iterdir()}
        wanted = {"User guide", "Uninstall Vornikplan10"}
        if (self.place / "drafting.exe").exists():
            wanted.add("Vornikplan10")
        self.assertEqual(entries, wanted)

    def test_speaks_chinese(self):
        run(WINE, self.setup, "/S", "/LANG=2052")
        entries = {path.stem for path in self.menu.iterdir()}
        self.assertLessEqual({"使用说明", "卸载 Vornikplan10"}, entries)
        self.assertFalse({"User guide", "Uninstall Vornikplan10"} & entries, "of the install before")
        self.uninstall()
        self.assertFalse(self.menu.exists())

    def test_nothing_of_its_own_stays_behind(self):
        self.uninstall()
        self.assertFalse(self.place.exists())
        self.assertFalse(self.menu.exists())
        self.assertIsNone(self.registered("DisplayName"))

    def test_drawings_of_the_user_stay(self):
        drawing = self.place / "mine.dwg"
        drawing.write_bytes(b"AC1015")
        self.uninstall()
        self.assertEqual(files_below(self.place), {"mine.dwg"})

    def test_a_library_that_was_worked_with_stays_whole(self):
        vornik = self.place / "vornik.exe"
        run(WINE, vornik, "library", "model", "3", "2", "MINE", "--install", self.place / "Library",
            cwd=self.folder)
        before = files_below(self.place / "Library")
        tree = (self.place / "Library/Datcom/zhllib/zhllib.qdp").read_bytes()
        self.assertIn(b"MINE", tree)

        run(WINE, self.setup, "/S")  # the same again, as a new version would come
        self.assertEqual((self.place / "Library/Datcom/zhllib/zhllib.qdp").read_bytes(), tree)
        self.uninstall()
        self.assertEqual({path.name for path in self.place.iterdir()}, {"Library"})
        self.assertEqual(files_below(self.place / "Library"), before)
        self.assertEqual((self.place / "Library/Datcom/zhllib/zhllib.qdp").read_bytes(), tree)

    def test_refuses_while_the_program_runs(self):
        with subprocess.Popen([WINE, self.place / "vornik.exe", "run", "-"], stdin=subprocess.PIPE,
                              stdout=subprocess.PIPE, cwd=self.folder) as program:
            time.sleep(2)  # its libraries are loaded within a tenth of that; it waits for input
            self.assertIsNone(program.poll())
            before = files_below(self.place)
            run(WINE, self.setup, "/S", status=2)
            run(WINE, self.place / "uninstall.exe", "/S", f"_?={self.windows_path()}", status=2)
            self.assertEqual(files_below(self.place), before)
            program.stdin.close()
            self.assertEqual(program.wait(60), 0)

    def windows_path(self):
        return "C:" + str(self.place).split("drive_c")[1].replace("/", "\\")


if __name__ == "__main__":
    if "VORNIK_WINE_SESSION" not in os.environ:
        os.execv(SESSION, [str(SESSION), sys.executable, *sys.argv])
    main()
