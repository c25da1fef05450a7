#!/usr/bin/env python3
"""What GDAL's CAD and DXF drivers find in drawings, one JSON object a line: read_gdal.py FILE..."""

import json
import sys

from osgeo import gdal, ogr

gdal.UseExceptions()
ogr.UseExceptions()


def kind_of(feature):
    """The CAD driver has a field for the kind; the DXF driver ends the subclasses with it."""
    for field in ("cadgeom_type", "SubClasses"):
        if feature.GetFieldIndex(field) >= 0:
            return (feature.GetField(field) or "?").split(":")[-1]
    return "?"


def read(path, complaints):
    source = gdal.OpenEx(path, gdal.OF_VECTOR,
                         allowed_drivers=["DXF" if path.endswith(".dxf") else "CAD"])
    counts, layers = {}, set()
    for index in range(source.GetLayerCount()):
        layer = source.GetLayer(index)
        layers.add(layer.GetName())
        for feature in layer:
            kind = kind_of(feature)
            counts[kind] = counts.get(kind, 0) + 1
    return {"accepted": True, "entities": counts, "layers": sorted(layers)}


def main():
    for path in sys.argv[1:]:
        complaints = []
        gdal.PushErrorHandler(lambda level, number, text, to=complaints: to.append(text))
        try:
            answer = read(path, complaints)
        except RuntimeError as error:
            answer = {"accepted": False, "error": str(error)}
        gdal.PopErrorHandler()
        print(json.dumps({"file": path, "complaints": complaints, **answer}))


if __name__ == "__main__":
    main()
