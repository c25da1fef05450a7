#!/usr/bin/env python3
"""Tests of the program vornik as it is called: files in, files and texts out, exit status.

Readers of others look at what comes out: poppler's tools at PDF, Python's own modules at SVG, JSON
and CSV. Usage: as program_fixture.py tells.
"""

import base64
import collections
import csv
import io
import json
import pathlib
import shutil
import struct
import xml.etree.ElementTree

from program_fixture import DATA, ROW, Install, main


class Usage(Install):
    COMMANDS = ("sample", "run", "place", "dump", "convert", "plot", "bom", "row", "library")

    def test_help_lists_every_command(self):
        out, _ = self.run_vornik("--help")
        for name in self.COMMANDS:
            self.assertIn(f"\n  {name} ", out)

    def test_every_command_has_help(self):
        for name in self.COMMANDS:
            out, problem = self.run_vornik(name, "--help")
            self.assertTrue(out.startswith(f"usage: vornik {name}"), out)
            self.assertEqual(problem, "")

    def test_wrong_usage_has_status_2_and_tells_the_usage(self):
        for words in ((), ("nonsense",), ("plot",), ("plot", "chain.dwg"), ("dump",), ("bom",),
                      ("bom", "a.dwg", "--install", "install"), ("bom", "a.dwg", "--by", "size"),
                      ("bom", "--install", "install", "--compare", "a.dwg"),
                      ("bom", "a.dwg", "--at", "0,0"), ("bom", "a.dwg", "--table", "b.dwg", "--at",
                                                        "here"),
                      ("bom", "a.dwg", "--table", "b.dwg", "--output", "c.csv"), ("plot", "a.dwg", "--output"),
                      ("dump", "--nonsense", "a.dwg"), ("convert", "a.dwg"), ("row", "write"),
                      ("row", "expand"), ("row", "read", "--install", "install"), ("library",),
                      ("library", "list"), ("library", "show", "--install", "install"),
                      ("run", "--recover", "--drawing", "a.dwg"), ("run", "--recover", "a", "b"),
                      ("library", "paint", "--install", "install"),
                      ("library", "sheet", "x.pdf", "--columns", "0", "--install", "install")):
            out, problem = self.run_vornik(*words, status=2)
            self.assertEqual(out, "")
            self.assertIn("usage: vornik", problem)

    def test_wrong_values_of_options_are_told(self):
        for option, value in (("--paper", "A9"), ("--scale", "0"), ("--window", "1,2,3"),
                              ("--window", "0,0,0,5"), ("--width", "3"), ("--background", "red")):
            _, problem = self.run_vornik("plot", "chain.dwg", "--output", "x.pdf", option, value,
                                         status=2)
            self.assertIn(option, problem)
        self.assertFalse((self.folder / "x.pdf").exists())

    def test_drawings_that_cannot_be_read_have_status_1(self):
        (self.folder / "broken.dwg").write_bytes(b"AC1015" + b"\0" * 100)
        (self.folder / "newer.dwg").write_bytes(b"AC1032" + b"\0" * 100)
        for command in (("plot", "--output", "x.pdf"), ("dump",), ("bom",)):
            for name in ("missing.dwg", "broken.dwg", "newer.dwg", "drawing.xyz"):
                out, problem = self.run_vornik(*command, name, status=1)
                self.assertEqual(out, "")
                self.assertIn(name, problem)

    def test_output_that_cannot_be_written_has_status_1(self):
        for command in (("plot", "chain.dwg", "--output", "missing/x.pdf"),
                        ("bom", "chain.dwg", "--output", "missing/x.csv")):
            _, problem = self.run_vornik(*command, status=1)
            self.assertIn("missing", problem)


class Sample(Install):
    def test_fonts_stand_beside_their_licences(self):
        folder = self.folder / "install" / "Datcom"
        for name in ("english.wzk", "chinese.wzk", "fonts.txt", "ARPHICPL.TXT"):
            self.assertGreater((folder / name).stat().st_size, 1000, name)


class Plot(Install):
    def test_pdf_is_one_page_that_can_be_searched(self):
        self.run_vornik("plot", "chain.dwg", "--output", "chain.pdf")
        info = self.tool("pdfinfo", "chain.pdf")
        self.assertRegex(info, r"Pages: +1\n")
        words = collections.Counter(self.tool("pdftotext", "chain.pdf", "-").split())
        self.assertEqual(words["QF1"], 2)
        self.assertEqual(words["电动机"], 2)
        self.assertEqual(words["WX1"], 1)
        self.assertEqual(words["KM2"], 1)

    def test_pdf_page_is_the_paper(self):
        self.run_vornik("plot", "chain.dwg", "--output", "a3.pdf", "--paper", "A3", "--upright")
        self.assertIn("841.89 x 1190.55 pts (A3)", self.tool("pdfinfo", "a3.pdf"))
        self.run_vornik("plot", "chain.dwg", "--output", "own.pdf", "--paper", "254x127")
        self.assertIn("720 x 360 pts", self.tool("pdfinfo", "own.pdf"))

    def test_pdf_words_lie_over_their_strokes(self):
        self.run_vornik("plot", "chain.dwg", "--output", "own.pdf", "--paper", "254x127",
                        "--window", "-127,-127,127,0", "--scale", "1")
        boxes = self.tool("pdftotext", "-bbox", "own.pdf", "-")
        tree = xml.etree.ElementTree.fromstring(boxes)
        found = [word for word in tree.iter("{http://www.w3.org/1999/xhtml}word")
                 if word.text == "WX1"]
        self.assertEqual(len(found), 1)
        # The label stands at (-13.848, -97.75), 1.2 times its x in the row.
        self.assertAlmostEqual(float(found[0].get("xMin")) / 72 * 25.4 - 127, -13.85, places=1)
        self.assertAlmostEqual(float(found[0].get("yMax")) / 72 * 25.4, 97.75, delta=1)

    def test_pdf_shows_its_strokes(self):
        self.run_vornik("plot", "chain.dwg", "--output", "mono.pdf", "--monochrome")
        self.tool("pdftoppm", "-r", "50", "-gray", "mono.pdf", "mono")
        picture = next(self.folder.glob("mono*.pgm")).read_bytes()
        pixels = picture[-(len(picture) - len(picture.split(b"\n255\n", 1)[0]) - 5):]
        dark = sum(1 for pixel in pixels if pixel < 200)
        self.assertGreater(dark, 1000)
        self.assertLess(dark, len(pixels) / 10)

    def test_svg_is_xml_with_strokes_and_texts(self):
        self.run_vornik("plot", "chain.dwg", "--output", "chain.svg")
        root = xml.etree.ElementTree.parse(self.folder / "chain.svg").getroot()
        name = "{http://www.w3.org/2000/svg}"
        self.assertEqual(root.tag, name + "svg")
        texts = [text.text for text in root.iter(name + "text")]
        self.assertEqual(texts.count("电动机"), 2)
        self.assertEqual(texts.count("QF1"), 2)
        self.assertGreater(len(list(root.iter(name + "path"))), 20)

    def test_same_drawing_gives_the_same_bytes(self):
        for form in ("pdf", "svg"):
            for copy in ("one", "two"):
                self.run_vornik("plot", "chain.dwg", "--output", f"{copy}.{form}")
            self.assertEqual(self.bytes_of(f"one.{form}"), self.bytes_of(f"two.{form}"))

    def test_several_drawings_are_pages_of_one_pdf(self):
        self.run_vornik("place", "--install", "install", "--circuits", "9", "--output", "nine.dwg")
        self.run_vornik("plot", "chain.dwg", "nine.dwg", "chain.dwg", "--output", "book.pdf")
        self.assertIn("Pages:           3", self.tool("pdfinfo", "book.pdf"))
        self.tool("pdftotext", "-f", "2", "-l", "2", "book.pdf", "second.txt")
        self.tool("pdftotext", "-f", "3", "-l", "3", "book.pdf", "third.txt")
        self.assertNotEqual(self.bytes_of("second.txt"), self.bytes_of("third.txt"))
        self.assertIn("KM", self.bytes_of("second.txt").decode())
        _, problem = self.run_vornik("plot", "chain.dwg", "nine.dwg", "--output", "x.svg", status=2)
        self.assertIn("PDF", problem)
        _, problem = self.run_vornik("plot", "chain.dwg", "absent.dwg", "--output", "y.pdf",
                                     status=1)
        self.assertIn("absent.dwg", problem)
        self.assertFalse((self.folder / "y.pdf").exists())

    def test_png_has_the_width_asked_for(self):
        self.run_vornik("plot", "chain.dwg", "--output", "chain.png", "--width", "640")
        data = self.bytes_of("chain.png")
        self.assertEqual(data[:8], b"\x89PNG\r\n\x1a\n")
        self.assertEqual(struct.unpack(">I", data[16:20])[0], 640)

    def test_fonts_are_found_by_name_or_replaced_with_a_word(self):
        self.run_vornik("convert", "chain.dwg", "named.dxf")
        named = self.bytes_of("named.dxf")
        self.assertEqual(named.count(b"\ntxt\r\n"), 1)
        (self.folder / "named.dxf").write_bytes(named.replace(b"\ntxt\r\n", b"\nother.shx\r\n"))
        self.run_vornik("plot", "chain.dwg", "--output", "plain.svg")
        _, problem = self.run_vornik("plot", "named.dxf", "--output", "named.svg")
        self.assertIn("the font other.shx isn't there", problem)
        self.assertEqual(self.bytes_of("named.svg"), self.bytes_of("plain.svg"))
        (self.folder / "fonts").mkdir()
        shutil.copy(self.folder / "install" / "Datcom" / "english.wzk",
                    self.folder / "fonts" / "OTHER.SHX")
        _, problem = self.run_vornik("plot", "named.dxf", "--output", "named.svg", "--fonts",
                                     "fonts")
        self.assertEqual(problem, "")
        self.assertEqual(self.bytes_of("named.svg"), self.bytes_of("plain.svg"))

    def test_plot_command_finds_fonts_beside_the_drawing(self):
        self.run_vornik("convert", "chain.dwg", "named.dxf")
        named = self.bytes_of("named.dxf").replace(b"\ntxt\r\n", b"\nother.shx\r\n")
        (self.folder / "beside").mkdir()
        (self.folder / "beside" / "named.dxf").write_bytes(named)
        script = "OPEN beside/named.dxf\nPLOT\n\nE\nN\n{}.svg\n"
        said, _ = self.run_vornik("run", "-", text=script.format("replaced"))
        self.assertIn("the font other.shx isn't there", said)
        shutil.copy(self.folder / "install" / "Datcom" / "english.wzk",
                    self.folder / "beside" / "OTHER.SHX")
        said, _ = self.run_vornik("run", "-", text=script.format("found"))
        self.assertNotIn("other.shx isn't there", said)
        self.assertIn(b"<svg", self.bytes_of("found.svg"))

    def test_damaged_font_is_told_with_its_file_and_offset(self):
        self.run_vornik("convert", "chain.dwg", "damaged.dxf")
        drawing = self.bytes_of("damaged.dxf").replace(b"\ngbcbig\r\n", b"\ncut\r\n")
        (self.folder / "damaged.dxf").write_bytes(drawing)
        font = self.bytes_of("install/Datcom/chinese.wzk")
        (self.folder / "cut.shx").write_bytes(font[:1000])
        _, problem = self.run_vornik("plot", "damaged.dxf", "--output", "damaged.svg")
        self.assertRegex(problem, r"cut\.shx: byte \d+: ends within the index")
        self.assertIn("cut.shx: the built-in font is taken instead", problem)

    def test_what_a_file_cannot_hold_is_lost_only_on_demand(self):
        shutil.copy(DATA / "TS1.dwg", self.folder)
        (self.folder / "script").write_text("POINT 1,2\n")
        for command in (("convert", "TS1.dwg", "ts1.dxf"),
                        ("run", "--drawing", "TS1.dwg", "--output", "ts1.dxf", "--transcript",
                         "transcript", "script")):
            _, problem = self.run_vornik(*command, status=1)
            self.assertIn("6 DIMENSION", problem)
            self.assertIn("nothing was written", problem)
            self.assertFalse((self.folder / "ts1.dxf").exists())
            _, problem = self.run_vornik(*command, "--lossy")
            self.assertIn("6 DIMENSION", problem)
            self.assertIn(b"HATCH", self.bytes_of("ts1.dxf"))
            (self.folder / "ts1.dxf").unlink()
        self.run_vornik("convert", "TS1.dwg", "again.dwg")

    def test_what_has_no_picture_is_told(self):
        shutil.copy(DATA / "TS1.dwg", self.folder)
        _, problem = self.run_vornik("plot", "TS1.dwg", "--output", "ts1.svg")
        self.assertIn("1 of kind MLINE are not shown", problem)
        self.assertNotIn("DIMENSION", problem)


class Dump(Install):
    def objects(self, name):
        out, _ = self.run_vornik("dump", "--json", name)
        return [json.loads(line) for line in out.splitlines()]

    def test_tables_come_first_then_the_entities_of_each_block(self):
        spaces = ["space" in one for one in self.objects("chain.dwg")]
        self.assertEqual(spaces, sorted(spaces))
        self.assertIn(True, spaces)

    def test_objects_have_one_handle_each(self):
        handles = [one["handle"] for one in self.objects("chain.dwg")]
        self.assertEqual(len(handles), len(set(handles)))

    def test_blocks_carry_their_extended_data(self):
        motors = [one for one in self.objects("chain.dwg")
                  if one["type"] == "INSERT" and one["block"] == "ZHL1022"]
        self.assertEqual(len(motors), 1)
        motor = motors[0]
        self.assertEqual(motor["space"], "*Model_Space")
        self.assertEqual(motor["layer"], "SCHEMATIC-ELEMENT")
        self.assertEqual(motor["position"], [0, -120.28, 0])
        self.assertEqual(motor["xdata"], {"TKSY": [[1000, "电动机&M"]],
                                          "XHGG": [[1000, "Y200L-4 30kW"]]})

    def test_texts_layers_and_attributes_are_shown(self):
        objects = self.objects("chain.dwg")
        texts = [one["text"] for one in objects if one["type"] == "TEXT"]
        self.assertIn("电动机", texts)
        layers = {one["name"]: one for one in objects if one["type"] == "LAYER"}
        self.assertEqual(layers["SCHEMATIC-ELEMENT"]["colour"], 3)
        scales = [one for one in objects if one["type"] == "ATTRIB"]
        self.assertEqual([one["tag"] for one in scales], ["SCALE", "SCALE"])

    def test_counts_agree_with_another_reader(self):
        for path in sorted(DATA.glob("*.dwg")):
            shutil.copy(path, self.folder)
            readers = json.loads(path.with_suffix(".dwg.json").read_text())["readers"]
            wanted = next(one for one in readers if one["reader"] == "libredwg-web")["entities"]
            found = collections.Counter(one["type"] for one in self.objects(path.name)
                                        if "space" in one)
            for kind in ("LINE", "CIRCLE", "ARC", "LWPOLYLINE", "TEXT", "INSERT", "SOLID"):
                self.assertEqual(found[kind], wanted.get(kind, 0), f"{path.name}: {kind}")

    def test_plain_form_ends_with_counts(self):
        out, _ = self.run_vornik("dump", "chain.dwg")
        lines, counts = out.split("\n\n")
        self.assertEqual(len(lines.splitlines()), len(self.objects("chain.dwg")))
        self.assertIn("\n1 POINT\n", counts)


class PartsList(Install):
    HEADING = ["symbol", "name", "letters", "model", "count", "circuits", "places"]

    def test_models_of_a_drawing_are_counted_by_symbol_and_model(self):
        out, problem = self.run_vornik("bom", "chain.dwg")
        rows = list(csv.reader(io.StringIO(out)))
        self.assertEqual(rows[0], self.HEADING)
        self.assertEqual(problem, "")
        self.assertEqual(rows[1:], sorted(rows[1:]))
        table = {(row[0], row[3]): row for row in rows[1:]}
        self.assertEqual(table["ZHL1012", "JR36-63 45-63A"],
                         ["ZHL1012", "热继电器", "FR", "JR36-63 45-63A", "2", "1; 2",
                          "(0, -77.5); (92.5, -67.5)"])
        self.assertEqual(sum(int(row[4]) for row in rows[1:]), 15)
        self.assertFalse({"F002", "ZHL1000"} & {row[0] for row in rows})

    def test_models_of_the_library_are_counted_over_all_circuits(self):
        out, problem = self.run_vornik("bom", "--install", "install")
        self.assertEqual(problem, "")
        rows = list(csv.reader(io.StringIO(out)))[1:]
        motors = [row for row in rows if row[3] == "Y280S-4 75kW"]
        self.assertEqual([(row[1], row[4], row[5]) for row in motors], [("电动机", "2", "09; 10")])

    def test_two_drawings_are_compared_by_model(self):
        for name, circuits in (("older.dwg", "1,2,3"), ("newer.dwg", "1,3,4")):
            self.run_vornik("place", "--install", "install", "--circuits", circuits, "--output",
                            name)
        out, problem = self.run_vornik("bom", "newer.dwg", "--compare", "older.dwg")
        self.assertEqual(problem, "")
        rows = list(csv.DictReader(io.StringIO(out)))
        self.assertTrue(rows)
        for row in rows:
            self.assertEqual(int(row["after"]) - int(row["before"]), int(row["difference"]))
        motor = [row for row in rows if row["model"] == "Y200L-4 30kW"]
        self.assertEqual([(row["before"], row["after"], row["difference"], row["circuits after"])
                          for row in motor], [("0", "1", "+1", "3")])
        self.assertTrue(any(row["difference"].startswith("-") for row in rows))
        same, _ = self.run_vornik("bom", "newer.dwg", "--compare", "newer.dwg")
        self.assertEqual(len(same.splitlines()), 1)
        models, _ = self.run_vornik("bom", "newer.dwg", "--by", "model")
        both, _ = self.run_vornik("bom", "newer.dwg")
        total = [sum(int(row["count"]) for row in csv.DictReader(io.StringIO(text)))
                 for text in (models, both)]
        self.assertEqual(total[0], total[1])

    def test_table_stands_in_the_drawing_and_is_no_part_of_it(self):
        _, problem = self.run_vornik("bom", "chain.dwg", "--table", "table.dwg")
        self.assertEqual(problem, "")
        out, _ = self.run_vornik("dump", "--json", "table.dwg")
        objects = [json.loads(line) for line in out.splitlines()]
        table = [one for one in objects if one.get("layer") == "设备表"]
        texts = [one["text"] for one in table if one["type"] == "TEXT"]
        self.assertEqual(texts[:6], ["序号", "代号", "名称", "型号规格", "数量", "回路"])
        self.assertIn("JR36-63 45-63A", texts)
        self.assertEqual(self.run_vornik("bom", "table.dwg")[0],
                         self.run_vornik("bom", "chain.dwg")[0])
        self.run_vornik("bom", "chain.dwg", "--table", "table.dxf", "--at", "-500,0")
        self.assertIn("序号".encode("gbk"), self.bytes_of("table.dxf"))

    def test_file_begins_with_the_mark_that_spreadsheets_need(self):
        out, _ = self.run_vornik("bom", "chain.dwg")
        self.run_vornik("bom", "chain.dwg", "--output", "parts.csv")
        data = self.bytes_of("parts.csv")
        self.assertEqual(data[:3], b"\xef\xbb\xbf")
        self.assertEqual(data[3:].decode("utf-8"), out)
        self.assertIn(b"\r\n", data)


class MainCircuits(Install):
    """The script of ./run: a row of circuits with auxiliary symbols and busbars."""

    SCRIPT = pathlib.Path(__file__).resolve().parents[2] / "samples" / "main_circuits.scr"

    def test_script_draws_all_that_it_asks_for(self):
        script = self.SCRIPT.read_text(encoding="utf-8")
        shutil.copy(self.SCRIPT, self.folder)
        self.run_vornik("run", "--install", "install", "--output", "main.dwg", "--transcript",
                        "transcript.txt", "main_circuits.scr")
        out, _ = self.run_vornik("dump", "--json", "main.dwg")
        model = [one for one in map(json.loads, out.splitlines())
                 if one.get("space") == "*Model_Space"]
        blocks = collections.Counter(one["block"] for one in model if one["type"] == "INSERT")
        circuits = script.count("\nS\n")
        self.assertGreaterEqual(circuits, 8)
        self.assertEqual(len(set(line for line in script.splitlines() if "zhlselect" in line)),
                         circuits)
        self.assertEqual(blocks["Fah"], circuits)
        self.assertEqual(sum(count for name, count in blocks.items() if name.startswith("FG")),
                         script.count("\nF\n"))
        texts = [one["text"] for one in model if one["type"] == "TEXT"]
        self.assertIn("低压配电主回路系统图", texts)
        busbars = [one for one in model if one["type"] == "LWPOLYLINE" and one.get("width") == 0.8]
        self.assertEqual(len(busbars), script.count("PLINE"))


class Convert(Install):
    def test_drawing_keeps_its_objects(self):
        self.run_vornik("convert", "chain.dwg", "copy.dwg")
        before, _ = self.run_vornik("dump", "--json", "chain.dwg")
        after, _ = self.run_vornik("dump", "--json", "copy.dwg")
        self.assertEqual(after, before)

    def entities(self, name):
        """What a drawing shows, without the handles, which a form may give anew."""
        out, _ = self.run_vornik("dump", "--json", name)
        kept = ("space", "type", "layer", "colour", "block", "position", "start", "end", "points",
                "width", "text", "height", "rotation", "xdata")
        return [{name: one.get(name) for name in kept}
                for one in map(json.loads, out.splitlines()) if "space" in one]

    def test_dxf_and_back_shows_the_same(self):
        self.run_vornik("convert", "chain.dwg", "chain.dxf")
        self.run_vornik("convert", "chain.dxf", "back.dwg")
        self.assertEqual(self.entities("back.dwg"), self.entities("chain.dwg"))
        for name in ("chain.dxf", "back.dwg"):
            self.run_vornik("plot", name, "--output", name + ".svg")
        self.assertEqual(self.bytes_of("chain.dxf.svg"), self.bytes_of("back.dwg.svg"))


class Rows(Install):
    def test_row_is_expanded_into_the_tree(self):
        out, problem = self.run_vornik("row", "expand", "--json", "--install", "install",
                                       text=ROW + "\n\nbad\n")
        self.assertEqual(problem, "")
        first, empty, bad = map(json.loads, out.splitlines())
        self.assertEqual(first["number"], "05")
        self.assertEqual(first["scroll"], [60, 48])
        self.assertEqual(first["origin"], [30, 15])
        tree = first["tree"]
        self.assertEqual(tree["块"], "2")
        self.assertEqual(tree["块\\0\\块名"], "ZHL1003")
        self.assertEqual(tree["块\\0\\型号规格"], "CM1-63 25A")
        self.assertEqual(tree["块\\0\\插入点\\y"], "-10.000000")
        self.assertEqual(tree["块\\0\\块名\\left"], "18")
        self.assertEqual(base64.b64decode(tree["块\\0\\Sld"])[:13], b"AutoCAD Slide")
        self.assertEqual(tree["文字\\0\\文字"], "QF1")
        self.assertEqual(empty, {"message": "\n 行内容错误!"})
        self.assertEqual(bad, {"message": "\n 行内容错误!"})

    def test_plain_form_counts(self):
        out, _ = self.run_vornik("row", "expand", "--install", "install", text=ROW)
        self.assertEqual(out, "05: 2 blocks, 1 lines, 1 texts, 60 by 48 pixels\n")


if __name__ == "__main__":
    main()
