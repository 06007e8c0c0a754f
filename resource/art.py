#!/usr/bin/env python3
"""Turns the drawings of art/ into the images of the language file.

usage: art.py ART_FOLDER IMAGES_RC OUTPUT_FOLDER
       art.py --list                      the names of the files that the build waits for, with ; between them

Needs rsvg-convert (Debian: librsvg2-bin). Each row of IMAGES names one image, how it is made, and its drawings.
A drawing names its colours, as @accent; art/palette.tsv holds them all.

Each bitmap is drawn in every scale of SCALES too, unless it is of one colour, which is the same in all of them.
ScaledImages.rc gives those the numbers that controls/Scale.h looks for; the numbers at 100 % are in IMAGES_RC.
"""

import pathlib
import re
import struct
import subprocess
import sys
import zlib

WHITE = (255, 255, 255)  # the mask colour of the bitmaps
KEY = (0, 255, 0)  # the hole in the pictures of caption buttons
SCALES = (125, 150, 200, 300)  # percent, beside 100
SCALED_NUMBERS = "ScaledImages.rc"
BYTES_OF_PIXEL = {2: 3, 6: 4}  # of the colour types of a PNG: without and with alpha
OPAQUE = 128  # from this alpha on a pixel of a masked bitmap belongs to the drawing


class Picture:
    """Pixels as rows of (red, green, blue, alpha), from the top; the colours are not multiplied by alpha."""

    def __init__(self, rows, png):
        self.rows = rows
        self.png = png
        self.width = len(rows[0])
        self.height = len(rows)


def unfiltered(data, stride, step):
    """The rows of a PNG, of stride bytes with step bytes a pixel, without the filters of the file format."""
    above = bytearray(stride)
    for at in range(0, len(data), stride + 1):
        kind, line = data[at], bytearray(data[at + 1:at + 1 + stride])
        for x in range(stride):
            left, up, corner = (line[x - step], above[x], above[x - step]) if x >= step else (0, above[x], 0)
            nearest = min((left, up, corner), key=lambda value: abs(left + up - corner - value))
            line[x] = (line[x] + (0, left, up, (left + up) // 2, nearest)[kind]) & 255
        yield line
        above = line


VIEW_BOX = re.compile(r'viewBox="0 0 (\d+) (\d+)"')
BITMAP_ROW = re.compile(r'^(\w+) BITMAP "([^"]+)"$', re.MULTILINE)
COLOUR = re.compile(r"""\b(fill|stroke|stop-color|color|style)=["']([^"']*)["']""")


def read_palette(source):
    """The colours of palette.tsv, as #rrggbb, by their names."""
    rows = pathlib.Path(source, "palette.tsv").read_text(encoding="utf-8").splitlines()[1:]
    return {name: colour for name, colour, _ in (row.split("\t") for row in rows)}


def coloured(svg, palette):
    """The text of a drawing with its colours in the place of their names."""
    def colour(match):
        attribute, value = match.groups()
        if value == "none":
            return match[0]
        if attribute == "style" or not value.startswith("@") or value[1:] not in palette:
            raise ValueError(f"{svg.name}: {match[0]}: name a colour of palette.tsv, as fill=\"@accent\"")
        return f'{attribute}="{palette[value[1:]]}"'
    return COLOUR.sub(colour, svg.read_text(encoding="utf-8"))


def scaled(pixels, percent):
    """Rounded as the program rounds it."""
    return (pixels * percent + 50) // 100


def drawn(svg, size, palette, percent=100):
    """A drawing at a width of `size` pixels, or at this part of that and of the height that belongs to it."""
    text = coloured(svg, palette)
    width, height = map(int, VIEW_BOX.search(text).groups())
    sides = (scaled(size, percent), scaled(size * height // width, percent))
    png = subprocess.run(["rsvg-convert", "--width", str(sides[0]), "--height", str(sides[1])],
                         input=text.encode(), stdout=subprocess.PIPE, check=True).stdout
    width, _, depth, colours, _, _, interlaced = struct.unpack(">IIBBBBB", png[16:29])
    if depth != 8 or colours not in BYTES_OF_PIXEL or interlaced:
        raise ValueError(f"{svg}: not drawn as plain pixels")
    step = BYTES_OF_PIXEL[colours]
    data, at = b"", 8
    while at < len(png):
        length, kind = struct.unpack(">I4s", png[at:at + 8])
        data += png[at + 8:at + 8 + length] if kind == b"IDAT" else b""
        at += length + 12
    lines = unfiltered(zlib.decompress(data), width * step, step)
    opacity = (255,) * (4 - step)
    return Picture([[tuple(line[x:x + step]) + opacity for x in range(0, width * step, step)] for line in lines], png)


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


def bitmap24(rows):
    pixels = b"".join(padded(b"".join(bytes(reversed(pixel)) for pixel in row)) for row in reversed(rows))
    return bitmap_file(len(rows[0]), len(rows), 24, b"", pixels)


def strip(pictures, names, _):
    """A bitmap of 24 bits, the pictures side by side; what is not drawn is white."""
    return bitmap24([sum(parts, []) for parts in zip(*(flattened(*each) for each in zip(pictures, names)))])


def opaque(pictures, names, _):
    """A bitmap of 24 bits that is drawn all over."""
    if any(pixel[3] != 255 for row in pictures[0].rows for pixel in row):
        raise ValueError(f"{names[0]}: draw a ground below it, since nothing is to show through")
    return bitmap24([[pixel[:3] for pixel in row] for row in pictures[0].rows])


def keyed(pictures, _, palette):
    """A bitmap of 24 bits for the title bar: what is not drawn has the key colour, edges are mixed with the bar's."""
    title = bytes.fromhex(palette["title"][1:])

    def mixed(pixel):
        return tuple((part * pixel[3] + below * (255 - pixel[3])) // 255 for part, below in zip(pixel[:3], title))
    return bitmap24([[mixed(pixel) if pixel[3] else KEY for pixel in row] for row in pictures[0].rows])


def mapped(pictures, names, _):
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
        bits += "0" * (-len(bits) % 8)
        mask += padded(int(bits, 2).to_bytes(len(bits) // 8, "big"))
    return header + colours + mask


def icon_file(kind, pictures, fields):
    """An icon (kind 1; the fields of a picture are planes and depth) or a cursor (kind 2; the hot spot)."""
    bits = [picture.png if picture.width > 64 else icon_bits(picture) for picture in pictures]
    start, entries = 6 + 16 * len(bits), b""
    for picture, data, field in zip(pictures, bits, fields):
        entries += struct.pack("<BBBBHHII", picture.width & 255, picture.height & 255, 0, 0, *field, len(data), start)
        start += len(data)
    return struct.pack("<HHH", 0, kind, len(bits)) + entries + b"".join(bits)


def icon(pictures, *_):
    return icon_file(1, pictures, [(1, 32)] * len(pictures))


def hand_cursor(pictures, *_):
    return icon_file(2, pictures, [(scaled(9, picture.width * 100 // 32), 0) for picture in pictures])


# File, maker, and its drawings with their widths in pixels.
IMAGES = [
    ("log-icons.bmp", strip, [(f"log-{name}.svg", 16)
                              for name in ("clean", "handled", "failed", "unhandled", "detected", "unknown")]),
    ("firewall-icons.bmp", strip, [(f"{name}.svg", 16)
                                   for name in ("firewall-blocked", "firewall-attack", "log-unhandled",
                                                "firewall-allowed", "log-unknown")]),
    ("background.bmp", opaque, [("background.svg", 16)]),
    ("frame-top.bmp", opaque, [("frame-top.svg", 800)]),
    ("frame-left.bmp", opaque, [("frame-left.svg", 8)]),
    ("frame-right.bmp", opaque, [("frame-right.svg", 8)]),
    ("frame-bottom.bmp", opaque, [("frame-bottom.svg", 16)]),
    ("corner-top-left.bmp", strip, [("corner-top-left.svg", 8)]),
    ("corner-top-right.bmp", strip, [("corner-top-right.svg", 8)]),
    ("corner-bottom-left.bmp", strip, [("corner-bottom-left.svg", 8)]),
    ("corner-bottom-right.bmp", strip, [("corner-bottom-right.svg", 8)]),
    ("button-face.bmp", opaque, [("button-face.svg", 27)]),
    ("tab.bmp", opaque, [("tab.svg", 110)]),
    ("tab-selected.bmp", opaque, [("tab-selected.svg", 110)]),
    ("close.bmp", keyed, [("close.svg", 28)]),
    ("close-hot.bmp", opaque, [("close-hot.svg", 28)]),
    ("minimise.bmp", keyed, [("minimise.svg", 28)]),
    ("minimise-hot.bmp", opaque, [("minimise-hot.svg", 28)]),
    ("arrow-up.bmp", mapped, [("arrow-up.svg", 9)]),
    ("arrow-down.bmp", mapped, [("arrow-down.svg", 9)]),
    ("kestrix.ico", icon, [("kestrix-small.svg", 16), ("kestrix-small.svg", 20), ("kestrix.svg", 24),
                           ("kestrix-small.svg", 32), ("kestrix.svg", 40), ("kestrix.svg", 48), ("kestrix.svg", 64),
                           ("kestrix.svg", 96), ("kestrix.svg", 256)]),
    ("help.ico", icon, [("help.svg", size) for size in (16, 20, 24, 32, 48)]),
    ("hand.cur", hand_cursor, [("hand.svg", size) for size in (32, 40, 48, 64, 96)]),
]


def has_scales(file, pictures):
    """Icons hold all their sizes, and one colour needs none."""
    pixels = {pixel for picture in pictures for row in picture.rows for pixel in row}
    return file.endswith(".bmp") and len(pixels) > 1


def scaled_name(file, percent):
    return file if percent == 100 else file.replace(".", f"-{percent}.")


def scaled_numbers(rows, files):
    """The rows of ScaledImages.rc for those of IMAGES_RC whose files are drawn in every scale."""
    return "".join(f'{name} + {percent * 100} BITMAP "{scaled_name(file, percent)}"\n'
                   for name, file in BITMAP_ROW.findall(rows) if file in files for percent in SCALES)


def main(source, rows, target):
    pathlib.Path(target).mkdir(parents=True, exist_ok=True)
    palette = read_palette(source)
    in_scales = set()
    for file, make, drawings in IMAGES:
        names = [name for name, _ in drawings]
        for percent in (100, *SCALES):
            pictures = [drawn(pathlib.Path(source, name), size, palette, percent) for name, size in drawings]
            pathlib.Path(target, scaled_name(file, percent)).write_bytes(make(pictures, names, palette))
            if not has_scales(file, pictures):
                break
            in_scales.add(file)
    numbers = scaled_numbers(pathlib.Path(rows).read_text(encoding="utf-8"), in_scales)
    pathlib.Path(target, SCALED_NUMBERS).write_text(numbers, encoding="utf-8")


def images():
    """The names of the files that the build waits for; those of the scales come before the last one."""
    print(";".join([file for file, _, _ in IMAGES] + [SCALED_NUMBERS]), end="")


if __name__ == "__main__":
    if sys.argv[1:] == ["--list"]:
        images()
    elif len(sys.argv) == 4:
        main(*sys.argv[1:])
    else:
        sys.exit(__doc__)
