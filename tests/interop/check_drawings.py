#!/usr/bin/env python3
"""Our DWG and DXF files read by independent readers: accepted without complaint, with the same
counts.

Usage: check_drawings.py DRAWINGS_PROGRAM FOLDER

DRAWINGS_PROGRAM (write_drawings) writes the drawings and what they hold. The readers are LibreDWG
and libdxfrw from npm (installed below FOLDER on first use), GDAL's drivers, and ezdxf, which reads
our DXF, and of our DWG the DXF that LibreDWG makes of it. Each knows only some kinds; the tables
below say which.
"""

import collections
import concurrent.futures
import json
import pathlib
import shutil
import subprocess
import sys

from npm_readers import HERE, install

DATA = HERE.parent / "data" / "dwg"
PYTHON = "/usr/bin/python3"

# Kinds that a reader doesn't count, and kinds that it knows at all.
LIBREDWG_SKIPS = {"SEQEND", "VERTEX", "TRACE", "REGION", "POLYLINE", "POLYLINE2D", "POLYLINE3D",
                  "SHAPE", "MINSERT"}
EZDXF_SKIPS = {"SEQEND", "VERTEX"}
LIBDXFRW_KNOWS = {"ARC", "CIRCLE", "ELLIPSE", "INSERT", "LINE", "LWPOLYLINE", "MTEXT", "POINT",
                  "SOLID", "TEXT"}
# What a DXF file of ours doesn't carry: the kinds that the database doesn't understand.
DXF_KINDS = {"LINE", "POINT", "CIRCLE", "ARC", "ELLIPSE", "SOLID", "LWPOLYLINE", "TEXT", "ATTRIB",
             "ATTDEF", "MTEXT", "INSERT", "MINSERT", "HATCH", "POLYLINE", "SPLINE", "TRACE"}
TABLES = ("layers", "blocks", "styles", "ltypes", "appids")

# What readers complain of in the original files too.
ORIGINAL_COMPLAINTS = {
    "libredwg": ("Open dwg file with error code: 64",),
    "gdal": ("Non closed ring detected",),
}
# In these drawings GDAL stops walking a chain at an entity it doesn't know; so it does in the
# originals.
GDAL_STOPS = ("TS1", "entities-2d")

problems = []
compared = collections.Counter()  # figures whose places were compared, by kind


def expect(condition, drawing, reader, what):
    if not condition:
        problems.append(f"{drawing}: {reader}: {what}"[:600])


def same(drawing, reader, what, found, wanted):
    expect(found == wanted, drawing, reader, f"{what}: {found} instead of {wanted}")


def without(counts, kinds):
    return {kind: n for kind, n in counts.items() if kind not in kinds}


def only(counts, kinds):
    return {kind: n for kind, n in counts.items() if kind in kinds}


def merged(counts):
    """With arrays counted as the INSERTs that they are."""
    total = without(counts, {"MINSERT"})
    if "MINSERT" in counts:
        total["INSERT"] = total.get("INSERT", 0) + counts["MINSERT"]
    return total


def folded(names):
    """Names compare without case."""
    return sorted(name.lower() for name in names if name)


def check_complaints(name, reader, answer):
    known = ORIGINAL_COMPLAINTS.get(reader, ())
    left = [c for c in answer["complaints"] if c and not any(k in c for k in known)]
    expect(not left, name, reader, f"complains: {left}")


def check_libredwg(name, answer, wanted):
    check_complaints(name, "libredwg", answer)
    same(name, "libredwg", "entities", without(answer["entities"], LIBREDWG_SKIPS),
         without(wanted["entities"], LIBREDWG_SKIPS))
    for table in TABLES:
        same(name, "libredwg", table, folded(answer[table]), folded(wanted[table]))


def check_boxes(name, reader, answer, wanted):
    """Figures are drawn where the reader has them; the lines of a hatch within its boundary."""
    for handle, (*theirs, kind) in answer["boxes"].items():
        ours = wanted["boxes"].get(handle)
        if ours is None:
            continue  # on a layer that isn't shown
        compared[kind] += 1
        size = max(theirs[2] - theirs[0], theirs[3] - theirs[1])
        near = size * 0.005 + 1e-6  # curves are polylines on both sides
        if kind == "SPLINE":
            near *= 2  # of a curve without tangents it guesses them
        if kind == "HATCH":
            good = (ours[0] >= theirs[0] - near and ours[1] >= theirs[1] - near
                    and ours[2] <= theirs[2] + near and ours[3] <= theirs[3] + near)
        else:
            good = all(abs(a - b) <= near for a, b in zip(ours, theirs))
        expect(good, name, reader, f"{kind} {handle} is drawn at {ours} instead of {theirs}")


def check_ezdxf_of_dwg(name, answer, wanted):
    reader = "ezdxf on libredwg's DXF"
    check_boxes(name, reader, answer, wanted)
    same(name, reader, "entities", without(answer["entities"], EZDXF_SKIPS),
         without(wanted["entities"], EZDXF_SKIPS))
    same(name, reader, "model space", answer["model_space"], wanted["model_space"])
    same(name, reader, "extended data", answer["xdata_apps"], wanted["xdata_apps"])
    same(name, reader, "appids", folded(answer["appids"]), folded(wanted["appids"]))


def check_ezdxf(name, answer, wanted):
    """The reference for DXF: nothing to mend, and everything there."""
    check_boxes(name, "ezdxf", answer, wanted)
    same(name, "ezdxf", "errors", answer["errors"], [])
    same(name, "ezdxf", "fixes", answer["fixes"], [])
    same(name, "ezdxf", "entities", answer["entities"],
         only(wanted["entities"], DXF_KINDS) | wanted["dxf_entities"])
    same(name, "ezdxf", "model space", answer["model_space"],
         only(wanted["model_space"], DXF_KINDS) | wanted["dxf_model_space"])
    for table in TABLES:
        found, ours = folded(answer[table]), folded(wanted[table])
        if "defpoints" not in ours:  # it makes this layer itself
            found = [record for record in found if record != "defpoints"]
        same(name, "ezdxf", table, found, ours)
    if name in ("kinds", "large"):
        same(name, "ezdxf", "extended data", answer["xdata_apps"], wanted["xdata_apps"])


def check_libdxfrw(name, answer, wanted):
    same(name, "libdxfrw", "entities", only(answer["entities"], LIBDXFRW_KNOWS),
         only(merged(wanted["entities"]), LIBDXFRW_KNOWS))
    same(name, "libdxfrw", "layers", len(answer["layers"]), len(wanted["layers"]))
    same(name, "libdxfrw", "blocks", len(answer["blocks"]), len(wanted["blocks"]))


def check_gdal(name, answer, wanted):
    """Of a DWG it shows model space, with the inserts' content in place of the inserts."""
    check_complaints(name, "gdal", answer)
    if not name.startswith(GDAL_STOPS):
        for kind, ours in (("CADLine", "LINE"), ("CADCircle", "CIRCLE"), ("CADArc", "ARC"),
                           ("CADSolid", "SOLID"), ("CADMText", "MTEXT")):
            least = wanted["model_space"].get(ours, 0)
            found = answer["entities"].get(kind, 0)
            expect(found >= least, name, "gdal", f"{kind}: {found}, fewer than {least}")
    extra = set(answer["layers"]) - set(wanted["layers"])
    expect(not extra, name, "gdal", f"layers that aren't there: {extra}")


def check_gdal_dxf(name, answer, wanted):
    """Of a DXF likewise, under the names of the classes."""
    check_complaints(name, "gdal (DXF)", answer)
    for kind, ours in (("AcDbLine", "LINE"), ("AcDbPoint", "POINT")):
        least = wanted["model_space"].get(ours, 0)
        found = answer["entities"].get(kind, 0)
        expect(found >= least, name, "gdal (DXF)", f"{kind}: {found}, fewer than {least}")


def run_reader(command, files):
    """A reader's answers by file name; a file that it gave none for is refused."""
    result = subprocess.run([str(word) for word in [*command, *files]], capture_output=True,
                            text=True, timeout=500, check=False)
    answers = {str(file): {"accepted": False, "error": result.stderr[-500:]} for file in files}
    for line in result.stdout.splitlines():
        try:
            answer = json.loads(line)
            answers[answer["file"]] = answer
        except (json.JSONDecodeError, KeyError):
            continue  # a reader's own printing
    return answers


def check_all(reader, command, files, check, holdings):
    answers = run_reader(command, files)
    for file in files:
        name = file.name.split(".")[0]
        answer = answers[str(file)]
        if answer["accepted"]:
            check(name, answer, holdings[name])
        else:
            expect(False, file.name, reader, f"refused: {answer}")
    return len(files)


def readers_of(modules):
    # The optimising compiler would take far longer than the reading.
    node = ["node", "--liftoff-only"]
    gdal = [PYTHON, HERE / "read_gdal.py"]
    ezdxf = [PYTHON, HERE / "read_ezdxf.py"]
    libdxfrw = [*node, HERE / "read_libdxfrw.mjs", modules]
    return node, gdal, ezdxf, libdxfrw


def main():
    program, folder = sys.argv[1], pathlib.Path(sys.argv[2])
    modules = install(folder)
    drawings = folder / "drawings"
    shutil.rmtree(drawings, ignore_errors=True)
    subprocess.run([program, drawings, DATA], check=True)
    holdings = {path.stem: json.loads(path.read_text(encoding="utf-8"))
                for path in drawings.glob("*.json")}
    dwg = [drawings / f"{name}.dwg" for name in sorted(holdings)]
    dxf = [drawings / f"{name}.dxf" for name in sorted(holdings)]
    node, gdal, ezdxf, libdxfrw = readers_of(modules)

    def libredwg_then_ezdxf():
        read = check_all("libredwg", [*node, HERE / "read_libredwg.mjs", modules], dwg,
                         check_libredwg, holdings)
        converted = [path.with_suffix(".libredwg.dxf") for path in dwg]
        return read + check_all("ezdxf", ezdxf, converted, check_ezdxf_of_dwg, holdings)

    jobs = [
        libredwg_then_ezdxf,
        lambda: check_all("ezdxf", ezdxf, dxf, check_ezdxf, holdings),
        lambda: check_all("libdxfrw", libdxfrw, dwg, check_libdxfrw, holdings),
        lambda: check_all("gdal", gdal, dwg, check_gdal, holdings),
        lambda: check_all("gdal", gdal, dxf, check_gdal_dxf, holdings),
    ]
    with concurrent.futures.ThreadPoolExecutor(max_workers=2) as pool:
        readings = sum(job.result() for job in [pool.submit(job) for job in jobs])
    print("compared figures:", dict(sorted(compared.items())))
    for kind in ("LINE", "ARC", "CIRCLE", "LWPOLYLINE", "SOLID", "TRACE", "ELLIPSE", "SPLINE", "HATCH",
                 "INSERT"):
        expect(compared[kind] > 0, "all", "ezdxf", f"the place of no {kind} was compared")
    print(*problems, sep="\n")
    print(f"{len(holdings)} drawings, {readings} readings, {len(problems)} problems")
    return 1 if problems or len(holdings) < 20 or readings != 6 * len(holdings) else 0


if __name__ == "__main__":
    sys.exit(main())
