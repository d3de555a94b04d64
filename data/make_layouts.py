#!/usr/bin/env python3
"""Draws the pictures of the templates in layouts/ from their layout.xml. Every run gives the same files."""
import pathlib
import struct
import xml.etree.ElementTree as ElementTree
import zlib

WIDTH, HEIGHT = 96, 54
GROUND, EDGE = 30, 235
GREYS = (96, 136, 176, 116, 156)                # neighbours differ


def number(element, tag):
    return int(element.findtext(tag))


def png(rows):
    def chunk(kind, body):
        return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body))
    pixels = b"".join(b"\0" + bytes(row) for row in rows)
    header = struct.pack(">IIBBBBB", len(rows[0]), len(rows), 8, 0, 0, 0, 0)    # 8 bit grey
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(pixels, 9))
            + chunk(b"IEND", b""))


def draw(cells, across, down):
    """The cells (x, y, width, height) of a field of so many units, in their order, the last on top."""
    rows = [[GROUND] * WIDTH for _ in range(HEIGHT)]
    for place, (x, y, width, height) in enumerate(cells):
        left, right = x * WIDTH // across, (x + width) * WIDTH // across - 1
        top, bottom = y * HEIGHT // down, (y + height) * HEIGHT // down - 1
        for row in range(top, bottom + 1):
            for column in range(left, right + 1):
                border = row in (top, bottom) or column in (left, right)
                rows[row][column] = EDGE if border else GREYS[place % len(GREYS)]
    return png(rows)


def grid_cells(layout, holder, entry):
    grid = layout.find(holder)
    cells = [tuple(number(item, tag) for tag in ("col", "row", "colspan", "rowspan")) for item in grid.iter(entry)]
    assert len(cells) == number(grid, "count"), layout.findtext("name")
    return cells, number(grid, "col"), number(grid, "row")


def mosaic_cells(layout):
    cells = [tuple(number(item, tag) for tag in ("x", "y", "width", "height")) for item in layout.iter("screen")]
    return cells, max(x + width for x, _, width, _ in cells), max(y + height for _, y, _, height in cells)


READERS = {"layers": lambda layout: grid_cells(layout, "layers", "layer"),
           "screens": mosaic_cells,
           "mvr": lambda layout: grid_cells(layout, "mvrs", "mvr")}

for folder, read in READERS.items():
    path = pathlib.Path(__file__).parent / "layouts" / folder
    for layout in ElementTree.parse(path / "layout.xml").getroot():
        (path / layout.findtext("image")).write_bytes(draw(*read(layout)))
