#!/usr/bin/env python3
"""Turns the drawings of art/ into the images of the language file.

usage: art.py ART_FOLDER OUTPUT_FOLDER

Needs rsvg-convert (Debian: librsvg2-bin). Each row of IMAGES names one image, how it is made, and its drawings.
"""

import pathlib
import struct
import subprocess
import sys
import zlib

WHITE = (255, 255, 255)  # the mask colour of the bitmaps
OPAQUE = 128  # from this alpha on a pixel of a masked bitmap belongs to the drawing


class Picture:
    """Pixels as rows of (red, green, blue, alpha), from the top; the colours are not multiplied by alpha."""

    def __init__(self, rows, png):
        self.rows = rows
        self.png = png
        self.width = len(rows[0])
        self.height = len(rows)


def unfiltered(data, width, height):
    """The bytes of a PNG's rows of four bytes a pixel, without the filters of the file format."""
    stride, above = width * 4, bytearray(width * 4)
    for y in range(height):
        kind, line = data[y * (stride + 1)], bytearray(data[y * (stride + 1) + 1:(y + 1) * (stride + 1)])
        for x in range(stride):
            left, up, corner = (line[x - 4], above[x], above[x - 4]) if x >= 4 else (0, above[x], 0)
            nearest = min((left, up, corner), key=lambda value: abs(left + up - corner - value))
            line[x] = (line[x] + (0, left, up, (left + up) // 2, nearest)[kind]) & 255
        yield line
        above = line


def drawn(svg, size):
    """A drawing at a width of `size` pixels."""
    png = subprocess.run(["rsvg-convert", "--width", str(size), "--keep-aspect-ratio", svg],
                         stdout=subprocess.PIPE, check=True).stdout
    width, height, depth, colours, _, _, interlaced = struct.unpack(">IIBBBBB", png[16:29])
    if (depth, colours, interlaced) != (8, 6, 0):
        raise ValueError(f"{svg}: not drawn as plain pixels of four bytes")
    data, at = b"", 8
    while at < len(png):
        length, kind = struct.unpack(">I4s", png[at:at + 8])
        data += png[at + 8:at + 8 + length] if kind == b"IDAT" else b""
        at += length + 12
    lines = unfiltered(zlib.decompress(data), width, height)
    return Picture([[tuple(line[x:x + 4]) for x in range(0, width * 4, 4)] for line in lines], png)


def flattened(picture, name):
    """The pixels on white, each either drawn in full or left out: an edge mixed with white would be a fringe."""
    for row in picture.rows:
        if any(pixel[3] >= OPAQUE and pixel[:3] == WHITE for pixel in row):
            raise ValueError(f"{name}: pure white would be cut out; use #fefefe")
    return [[pixel[:3] if pixel[3] >= OPAQUE else WHITE for pixel in row] for row in picture.rows]


def padded(line):
    return line + bytes(-len(line) % 4)


def bitmap_file(width, height, depth, table, pixels):
    start = 14 + 40 + len(table)
    info = struct.pack("<IiiHHIIiiII", 40, width, height, 1, depth, 0, len(pixels), 0, 0, len(table) // 4, 0)
    return struct.pack("<2sIHHI", b"BM", start + len(pixels), 0, 0, start) + info + table + pixels


def strip(pictures, names):
    """A bitmap of 24 bits, the pictures side by side."""
    rows = [sum(parts, []) for parts in zip(*(flattened(*each) for each in zip(pictures, names)))]
    pixels = b"".join(padded(b"".join(bytes(reversed(pixel)) for pixel in row)) for row in reversed(rows))
    return bitmap_file(len(rows[0]), len(rows), 24, b"", pixels)


def mapped(pictures, names):
    """A bitmap of 16 colours, black (0) and white (15): colours are mapped in a table only."""
    rows = flattened(pictures[0], names[0])
    indices = [[0 if pixel == (0, 0, 0) else 15 for pixel in row] + [0] * (len(row) % 2) for row in rows]
    lines = [bytes(high << 4 | low for high, low in zip(row[::2], row[1::2])) for row in reversed(indices)]
    table = bytes(4) * 15 + bytes((255, 255, 255, 0))
    return bitmap_file(len(rows[0]), len(rows), 4, table, b"".join(padded(line) for line in lines))


def icon_bits(picture):
    """The pixels of an icon or cursor: 32 bits with alpha, then the mask of the transparent ones."""
    header = struct.pack("<IiiHHIIiiII", 40, picture.width, picture.height * 2, 1, 32, 0, 0, 0, 0, 0, 0)
    colours = b"".join(bytes((b, g, r, a)) for row in reversed(picture.rows) for r, g, b, a in row)
    mask = b""
    for row in reversed(picture.rows):
        bits = "".join("0" if pixel[3] else "1" for pixel in row)
        mask += padded(int(bits, 2).to_bytes(len(bits) // 8, "big"))
    return header + colours + mask


def icon_file(kind, pictures, field_a, field_b):
    """An icon (kind 1; the fields are planes and depth) or a cursor (kind 2; the hot spot)."""
    bits = [picture.png if picture.width > 64 else icon_bits(picture) for picture in pictures]
    start, entries = 6 + 16 * len(bits), b""
    for picture, data in zip(pictures, bits):
        entries += struct.pack("<BBBBHHII", picture.width & 255, picture.height & 255, 0, 0, field_a, field_b,
                               len(data), start)
        start += len(data)
    return struct.pack("<HHH", 0, kind, len(bits)) + entries + b"".join(bits)


def icon(pictures, _):
    return icon_file(1, pictures, 1, 32)


def hand_cursor(pictures, _):
    return icon_file(2, pictures, 9, 0)


# File, maker, and its drawings with their widths in pixels.
IMAGES = [
    ("log-icons.bmp", strip, [(f"log-{name}.svg", 16)
                              for name in ("clean", "handled", "failed", "unhandled", "detected", "unknown")]),
    ("arrow-up.bmp", mapped, [("arrow-up.svg", 9)]),
    ("arrow-down.bmp", mapped, [("arrow-down.svg", 9)]),
    ("kestrix.ico", icon, [("kestrix-small.svg", 16), ("kestrix.svg", 24), ("kestrix-small.svg", 32),
                           ("kestrix.svg", 48), ("kestrix.svg", 256)]),
    ("hand.cur", hand_cursor, [("hand.svg", 32)]),
]


def main(source, target):
    pathlib.Path(target).mkdir(parents=True, exist_ok=True)
    for file, make, drawings in IMAGES:
        pictures = [drawn(pathlib.Path(source, name), size) for name, size in drawings]
        pathlib.Path(target, file).write_bytes(make(pictures, [name for name, _ in drawings]))


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    main(*sys.argv[1:])
