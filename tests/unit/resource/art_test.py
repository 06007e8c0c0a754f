#!/usr/bin/env python3
"""Tests of resource/art.py and of the drawings: every colour has a name in the palette, and what breaks a rule is told.

usage: art_test.py RESOURCE_FOLDER
"""

import pathlib
import re
import sys
import tempfile
import unittest

RESOURCES = pathlib.Path(sys.argv.pop(1)).resolve()
sys.dont_write_bytecode = True
sys.path.insert(0, str(RESOURCES))
import art  # noqa: E402

ART = RESOURCES / "art"
SHAPE = re.compile(r"<(path|rect|circle|ellipse|polygon)\b([^>]*)>")


class DrawingsTest(unittest.TestCase):
    """The drawings as they stand in the repository."""

    def setUp(self):
        self.palette = art.read_palette(ART)
        self.drawings = {svg.name: svg.read_text(encoding="utf-8") for svg in sorted(ART.glob("*.svg"))}

    def test_there_are_drawings_and_colours(self):
        self.assertGreater(len(self.drawings), 20)
        self.assertGreater(len(self.palette), 10)

    def test_every_colour_is_a_name_of_the_palette(self):
        for name in self.drawings:
            with self.subTest(name):
                self.assertNotIn("@", art.coloured(ART / name, self.palette))
                self.assertIsNone(re.search(r"#[0-9a-fA-F]{3}|rgb\(|url\(", self.drawings[name]))

    def test_every_shape_says_its_colour(self):
        for name, text in self.drawings.items():
            for shape, attributes in SHAPE.findall(text):
                with self.subTest(f"{name}: {shape}"):
                    self.assertIn('fill="', attributes)

    def test_every_colour_is_used_and_stands_once(self):
        used = set(re.findall(r'"@([a-z-]+)"', "".join(self.drawings.values())))
        self.assertEqual(set(self.palette), used)
        self.assertEqual(len(self.palette), len(set(self.palette.values())))
        for colour in self.palette.values():
            self.assertRegex(colour, "^#[0-9a-f]{6}$")

    def test_every_drawing_is_used(self):
        self.assertEqual(set(self.drawings), {name for _, _, drawings in art.IMAGES for name, _ in drawings})


class ScalesTest(unittest.TestCase):
    """Which images are drawn in several scales, how large, and under which numbers."""

    def test_sizes_are_rounded_as_the_program_rounds_them(self):
        self.assertEqual([34, 41, 54, 81], [art.scaled(27, percent) for percent in art.SCALES])

    def test_a_drawing_is_scaled_in_both_directions(self):
        picture = art.drawn(ART / "arrow-up.svg", 9, art.read_palette(ART), 150)
        self.assertEqual((14, 8), (picture.width, picture.height))

    def test_icons_and_bitmaps_of_one_colour_are_drawn_once(self):
        plain = art.Picture([[(1, 2, 3, 255)] * 2] * 2, b"")
        mixed = art.Picture([[(1, 2, 3, 255), (4, 5, 6, 255)]], b"")
        self.assertFalse(art.has_scales("a.bmp", [plain]))
        self.assertTrue(art.has_scales("a.bmp", [mixed]))
        self.assertFalse(art.has_scales("a.ico", [mixed]))

    def test_a_file_has_a_number_in_each_scale_for_each_of_its_names(self):
        rows = 'ONE BITMAP "a.bmp"\nTWO BITMAP "a.bmp"\nTHREE BITMAP "b.bmp"\nFOUR ICON "c.ico"\n'
        numbers = art.scaled_numbers(rows, {"a.bmp"}).splitlines()
        self.assertEqual(8, len(numbers))
        self.assertEqual('ONE + 12500 BITMAP "a-125.bmp"', numbers[0])
        self.assertEqual('TWO + 30000 BITMAP "a-300.bmp"', numbers[-1])


class RulesTest(unittest.TestCase):
    """A drawing that breaks a rule is told by its name."""

    def error_of(self, make, body):
        with tempfile.TemporaryDirectory() as folder:
            svg = pathlib.Path(folder, "bad.svg")
            svg.write_text('<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 4 4" width="4" height="4">'
                           f"{body}</svg>", encoding="utf-8")
            palette = {"white": "#ffffff", "dark": "#102030"}
            with self.assertRaises(ValueError) as caught:
                make([art.drawn(svg, 4, palette)], [svg.name], palette)
            return str(caught.exception)

    def test_a_literal_colour(self):
        self.assertIn('bad.svg: fill="#112233"', self.error_of(art.opaque, '<path d="M0 0H4V4Z" fill="#112233"/>'))

    def test_a_colour_that_the_palette_does_not_have(self):
        self.assertIn('bad.svg: stroke="@blue"', self.error_of(art.strip, '<path d="M0 0H4" stroke="@blue"/>'))

    def test_a_style_attribute(self):
        self.assertIn("bad.svg: style=", self.error_of(art.strip, '<path d="M0 0H4V4Z" style="fill:red"/>'))

    def test_white_in_a_masked_picture(self):
        self.assertIn("bad.svg: pure white", self.error_of(art.strip, '<path d="M0 0H4V4H0Z" fill="@white"/>'))

    def test_a_hole_in_an_opaque_picture(self):
        self.assertIn("bad.svg: draw a ground", self.error_of(art.opaque, '<path d="M0 0H4V2H0Z" fill="@dark"/>'))


if __name__ == "__main__":
    unittest.main()
