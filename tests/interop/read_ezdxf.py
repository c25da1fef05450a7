#!/usr/bin/env python3
"""What ezdxf finds in DXF files, with its audit, one JSON object a line: read_ezdxf.py FILE...

The strict reader reads, not the one that mends: NAME.libredwg.dxf, made by another program of our
DWG, is taken with the mending one.
"""

import json
import sys
from collections import Counter

import ezdxf
from ezdxf import bbox, disassemble, recover


def count_entities(document):
    counts = Counter()
    for block in document.blocks:
        for entity in block:
            counts[kind_of(entity)] += 1
            for attribute in getattr(entity, "attribs", ()):
                counts[attribute.dxftype()] += 1
    return counts


def kind_of(entity):
    is_array = entity.dxftype() == "INSERT" and entity.mcount > 1
    return "MINSERT" if is_array else entity.dxftype()


def apps_of(entity):
    return entity.xdata.data.keys() if entity.xdata is not None else ()


# Kinds whose extents it knows exactly; texts it only guesses.
FIGURES = {"POINT", "LINE", "ARC", "CIRCLE", "ELLIPSE", "SPLINE", "SOLID", "TRACE", "LWPOLYLINE",
           "POLYLINE", "HATCH", "INSERT"}


def boxes_of(document):
    found = {}
    for entity in document.modelspace():
        if entity.dxftype() not in FIGURES:
            continue
        parts = list(disassemble.recursive_decompose([entity]))
        if any(part.dxftype() not in FIGURES for part in parts):
            continue
        box = bbox.extents(parts)
        if box.has_data:
            low, high = box.extmin, box.extmax
            found[entity.dxf.handle] = [low.x, low.y, high.x, high.y, entity.dxftype()]
    return found


def open_file(path):
    if path.endswith(".libredwg.dxf"):
        return recover.readfile(path)
    document = ezdxf.readfile(path)
    return document, document.audit()


def read(path):
    document, auditor = open_file(path)
    apps = Counter(app for entity in document.entitydb.values() for app in apps_of(entity))
    return {
        "accepted": True,
        "errors": [str(e.message) for e in auditor.errors],
        "fixes": [str(e.message) for e in auditor.fixes],
        "entities": dict(count_entities(document)),
        "model_space": dict(Counter(kind_of(e) for e in document.modelspace())),
        "layers": sorted(layer.dxf.name for layer in document.layers),
        "blocks": sorted(block.name for block in document.blocks),
        "styles": sorted(style.dxf.name for style in document.styles),
        "ltypes": sorted(linetype.dxf.name for linetype in document.linetypes),
        "appids": sorted(app.dxf.name for app in document.appids),
        "xdata_apps": dict(apps),
        "boxes": boxes_of(document) if "-saved" in path else {},
    }


def main():
    for path in sys.argv[1:]:
        try:
            answer = read(path)
        except (ezdxf.DXFError, OSError, ValueError, KeyError) as error:
            answer = {"accepted": False, "error": repr(error)}
        print(json.dumps({"file": path, **answer}))


if __name__ == "__main__":
    main()
