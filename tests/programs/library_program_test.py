#!/usr/bin/env python3
"""Tests of `vornik library` as it is called. Usage: as program_fixture.py tells."""

import shutil
import struct

from program_fixture import ROW, Install, main


class Library(Install):
    """The library commands; each test that changes a library makes its own copy."""

    def library(self, *arguments, install="install", status=0):
        return self.run_vornik("library", *arguments, "--install", install, status=status)

    def copy(self):
        name = "copy-" + self.id().rsplit(".", 1)[1]
        shutil.copytree(self.folder / "install", self.folder / name)
        return name

    def tree_file(self, install):
        return self.folder / install / "Datcom" / "zhllib" / "zhllib.qdp"

    def slide_file(self, install):
        return self.folder / install / "Datcom" / "zhllib" / "zhllib.slb"

    def test_list_has_a_line_a_slot(self):
        out, _ = self.library("list")
        lines = [line.split("\t") for line in out.splitlines()]
        self.assertEqual(len(lines), 25)
        self.assertEqual(lines[4][:5], ["05", "主回路&05", "40 blocks", "5 lines", "5 texts"])
        for line in lines:
            self.assertRegex(line[5], r"^[1-9]\d{2,} bytes$")

    def test_show_tells_blocks_texts_and_slide(self):
        out, _ = self.library("show", "4")
        self.assertIn("\tZHL1022\t0,-120.28\tY200L-4 30kW\n", out)
        self.assertIn("text\t电动机\n", out)
        self.assertIn("slide: 240 by 640 dots, ", out)
        for number in ("0", "26", "x", "-1", "1.5"):
            _, problem = self.library("show", number, status=1)
            self.assertIn("no circuit " + number, problem)

    def test_sample_library_is_healthy(self):
        self.assertEqual(self.library("verify"), ("", ""))

    def test_verify_finds_what_is_wrong_with_slides_and_repairs_it(self):
        install = self.copy()
        exported = self.folder / "exported-slides"
        self.library("export", str(exported), install=install)
        whole = self.slide_file(install).read_bytes()
        # 03 gets the slide of 04, 05 loses its own, and one of no circuit stands there.
        shutil.copy(exported / "主回路&04.sld", exported / "主回路&03.sld")
        tree = self.tree_file(install)
        tree.write_text(tree.read_text(encoding="utf-8").replace("主回路&05\u0003", "主回路&77\u0003")
                        .replace("主回路&05", "主回路&77"), encoding="utf-8")
        self.library("import", str(exported), install=install)
        out, problem = self.library("verify", install=install, status=1)
        self.assertIn("zhllib.slb: 主回路&03: its slide isn't that of its row\n", out)
        self.assertIn("column 3: the row's number is 05\n", out)
        self.assertRegex(problem, r"vornik: \d+ problems")
        self.library("verify", "--repair", install=install, status=1)
        out, _ = self.library("verify", install=install, status=1)
        self.assertNotIn("zhllib.slb", out)
        self.assertNotEqual(self.slide_file(install).read_bytes(), whole)

    def test_repair_of_a_lost_slide_library_makes_it_anew(self):
        install = self.copy()
        whole = self.slide_file(install).read_bytes()
        self.slide_file(install).unlink()
        out, _ = self.library("verify", install=install, status=1)
        self.assertEqual(out.count("has no slide"), 25)
        self.assertEqual(self.library("verify", "--repair", install=install), ("", ""))
        self.assertEqual(self.slide_file(install).read_bytes(), whole)

    def test_verify_changes_nothing(self):
        install = self.copy()
        self.slide_file(install).unlink()
        self.library("verify", install=install, status=1)
        self.assertFalse(self.slide_file(install).exists())

    def test_verify_names_missing_symbols(self):
        install = self.copy()
        symbols = self.folder / install / "Dwglib"
        (symbols / "Dqbl0012" / "ZHL1011.dwg").unlink()
        directory = symbols / "dwgdir.dab"
        directory.write_bytes(directory.read_bytes().replace(b"ZHL1012 ", b"ZHL9999 "))
        directory = symbols / "slddir.dab"
        directory.write_bytes(directory.read_bytes().replace(b"ZHL1013 ", b"ZHL9999 "))
        out, _ = self.library("verify", install=install, status=1)
        self.assertIn("the symbol ZHL1011 has no drawing\n", out)
        self.assertIn("the symbol ZHL1012 isn't in dwgdir.dab\n", out)
        self.assertIn("the symbol ZHL1013 isn't in slddir.dab\n", out)
        self.assertRegex(out, r"zhllib.qdp: 主回路&05: column \d+: the symbol ZHL1011")
        self.assertIn("zhllib.qdp: 主回路&05: can't be captured: 读取文件失败!\n", out)

    def test_model_is_set_in_the_row(self):
        install = self.copy()
        self.library("model", "5", "C14", "Y90S-4 1.1kW", install=install)
        out, _ = self.library("show", "05", install=install)
        self.assertIn("\tZHL1022\t0,-120.28\tY90S-4 1.1kW\n", out)
        self.assertEqual(self.library("verify", install=install), ("", ""))
        before = self.tree_file(install).read_bytes()
        for cell, text, message in (("C14", 'a"b', "has a quote"), ("C14", "a)", "parenthesis"),
                                    ("C2", "63A", "C2 is empty"), ("C15", "63A", "no block"),
                                    ("99", "63A", "no block")):
            _, problem = self.library("model", "5", cell, text, install=install, status=1)
            self.assertIn(message, problem)
        self.library("model", "77", "C14", "63A", install=install, status=1)
        self.assertEqual(self.tree_file(install).read_bytes(), before)

    def test_exported_library_is_imported_whole(self):
        self.library("export", "exported")
        names = sorted(path.name for path in (self.folder / "exported").iterdir())
        self.assertEqual(len(names), 26)
        self.assertIn("circuits.txt", names)
        install = self.copy()
        self.slide_file(install).unlink()
        tree = self.tree_file(install)
        tree.unlink()
        self.library("import", "exported", install=install)
        self.library("export", "again", install=install)
        for name in names:
            self.assertEqual(self.bytes_of("again/" + name), self.bytes_of("exported/" + name))
        self.assertEqual(self.library("verify", install=install), ("", ""))

    def test_list_that_cannot_be_read_imports_nothing(self):
        install = self.copy()
        before = self.tree_file(install).read_bytes()
        for text, where in (("主回路&01\t(\"01\"\n", "circuits.txt:1: "),
                            ("no tab\n", "circuits.txt:1: "),
                            ("\na/b\t" + ROW + "\n", "circuits.txt:2: ")):
            (self.folder / "bad").mkdir(exist_ok=True)
            (self.folder / "bad" / "circuits.txt").write_text(text, encoding="utf-8")
            _, problem = self.library("import", "bad", install=install, status=1)
            self.assertIn(where, problem)
        self.library("import", "missing", install=install, status=1)
        self.assertEqual(self.tree_file(install).read_bytes(), before)

    def test_sheet_shows_every_circuit_with_number_and_name(self):
        self.library("sheet", "sheet.pdf")
        self.assertRegex(self.tool("pdfinfo", "sheet.pdf"), r"Pages: +2\n")
        words = self.tool("pdftotext", "sheet.pdf", "-").split()
        for number in range(1, 26):
            self.assertIn(f"{number:02}", words)
            self.assertIn(f"主回路&{number:02}", words)

    def test_sheet_as_png_shows_every_slide_within_its_cell(self):
        self.library("sheet", "sheet.png", "--width", "1200")
        self.tool("convert", "sheet.png", "-depth", "8", "rgb:sheet.rgb")
        width, height = struct.unpack(">II", self.bytes_of("sheet.png")[16:24])
        self.assertEqual(width, 1200)
        pixels = self.bytes_of("sheet.rgb")
        scale = 1200 / 420
        cell = (400 + 3) / 9
        for slot in range(25):
            left = int((10 + slot % 9 * cell) * scale)
            top = int((10 + slot // 9 * (((cell - 3) * 8 / 3) + 9)) * scale)
            green = sum(1 for y in range(top, top + int((cell - 3) * 8 / 3 * scale))
                        for x in range(left, left + int((cell - 3) * scale))
                        if pixels[(y * width + x) * 3 + 1] > pixels[(y * width + x) * 3] + 60)
            self.assertGreater(green, 150, slot)

    def test_sheet_of_any_slide_library(self):
        self.library("sheet", "symbols.pdf", "--slides", "install/Dwglib/Dqbl0012/Dqbl0012.slb")
        words = self.tool("pdftotext", "symbols.pdf", "-").split()
        self.assertEqual(sum(word.startswith("ZHL") for word in words), 59)
        self.library("sheet", "x.pdf", "--slides", "chain.dwg", status=1)
        self.library("sheet", "x.txt", status=1)

    def test_every_auxiliary_symbol_has_a_slide(self):
        for number in (1, 2, 3):
            name = f"fzgn{number:04}"
            folder = self.folder / "install" / "Datcom" / "zhllib" / name
            self.assertGreater((folder / f"{name}.slb").stat().st_size, 68)
            out = (folder / f"{name}.slb").read_bytes()
            for drawing in folder.glob("*.dwg"):
                self.assertIn(drawing.stem.encode(), out)


if __name__ == "__main__":
    main()
