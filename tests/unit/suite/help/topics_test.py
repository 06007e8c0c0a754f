#!/usr/bin/env python3
"""Tests of suite/help/topics.py: each rule, broken once, is reported; the topics as they are pass.

usage: topics_test.py REPOSITORY
"""

import pathlib
import shutil
import sys
import tempfile
import unittest

ROOT = pathlib.Path(sys.argv.pop(1)).resolve()
sys.path.insert(0, str(ROOT / "suite/help"))
import topics  # noqa: E402

VIRUS_ROW = "2\t211 316\tvirus\tVirus log\tviruses\n"


class TopicsTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name, "help")
        shutil.copytree(ROOT / "suite/help", self.folder)
        self.table = self.folder / "topics.tsv"

    def violations(self):
        names = topics.screen_texts(ROOT / "resource/texts.tsv", ROOT / "resource/en-US/Kestrix.rc")
        return list(topics.violations(self.folder, topics.read_table(self.table), names))

    def in_table(self, old, new):
        text = self.table.read_text()
        self.assertIn(old, text)
        self.table.write_text(text.replace(old, new, 1))

    def with_piece(self, piece):
        (self.folder / "topics/virus.html").write_text(piece)
        return self.violations()

    def test_the_topics_as_they_are_pass(self):
        self.assertEqual(self.violations(), [])

    def test_a_missing_context(self):
        self.in_table("211 316", "211")
        self.assertEqual(self.violations(), ["topics.tsv:1: the context 316 is missing"])

    def test_a_context_that_stands_twice(self):
        self.in_table("265 312", "265 312 316")
        self.assertEqual(self.violations(), ["topics.tsv:11: the context 316 stands twice"])

    def test_a_context_that_nobody_asks_for(self):
        self.in_table("211 316", "211 316 999")
        self.assertEqual(self.violations(), ["topics.tsv:1: the viewer asks for no context 999"])

    def test_a_title_that_stands_twice(self):
        self.in_table("Spyware log", "Virus log")
        self.assertEqual(self.violations(), ["topics.tsv:11: the title Virus log stands twice"])

    def test_a_file_that_stands_twice(self):
        self.in_table("\tvirus\t", "\tspyware\t")
        self.assertIn("topics.tsv:11: the file spyware stands twice", self.violations())

    def test_a_title_that_the_compiler_would_misread(self):
        self.in_table("Spyware log", "Spyware & more")
        self.assertEqual(self.violations(),
                         ["topics.tsv:11: the title 'Spyware & more' is not of letters and blanks alone"])

    def test_a_topic_that_the_index_lacks(self):
        self.in_table(VIRUS_ROW, VIRUS_ROW.replace("viruses", ""))
        self.assertEqual(self.violations(), ["topics.tsv:10: the index has nothing for 'Virus log'"])

    def test_contents_that_begin_below_nothing(self):
        self.in_table("1\t\tstart", "2\t\tstart")
        self.assertEqual(self.violations(), ["topics.tsv:2: the first topic must have the level 1"])

    def test_a_line_with_a_column_too_few(self):
        self.in_table(VIRUS_ROW, "2\t211 316\tvirus\tVirus log\n")
        with self.assertRaisesRegex(topics.MalformedTable, "topics.tsv:10: 4 columns instead of 5"):
            self.violations()

    def test_a_context_that_is_no_number(self):
        self.in_table("211 316", "211, 316")
        with self.assertRaisesRegex(topics.MalformedTable, "topics.tsv:10: level or contexts are no numbers"):
            self.violations()

    def test_a_piece_that_is_missing(self):
        (self.folder / "topics/scans.html").unlink()
        self.assertIn("topics/scans.html: the file is missing", self.violations())

    def test_a_piece_that_no_line_names(self):
        (self.folder / "topics/more.html").write_text("<p>More.</p>\n")
        self.assertEqual(self.violations(), ["topics/more.html: topics.tsv does not name it"])

    def test_a_link_that_leads_nowhere(self):
        for link in ("more.html", "https://www.example.com/", "Spyware.html"):
            self.assertEqual(self.with_piece(f'<p><a href="{link}">x</a></p>\n'),
                             [f"topics/virus.html: the link {link} leads nowhere"])

    def test_a_name_that_the_viewer_does_not_show(self):
        self.assertEqual(self.with_piece("<p><b>Virus\nname</b></p>\n"),
                         ["topics/virus.html: the viewer has no text 'Virus name'"])

    def test_names_stand_without_access_key_colon_and_dots(self):
        piece = "<p><b>Export</b> <b>Location</b> <b>Log</b> <b>Pattern\nversion</b></p>\n"
        self.assertEqual(self.with_piece(piece), [])

    def test_scripts_styles_and_pictures_are_refused(self):
        self.assertEqual(self.with_piece('<p style="x">a</p><script>b</script><ul><li>c</li></ul>\n'),
                         ["topics/virus.html: <p> has the attribute style",
                          "topics/virus.html: the tag <script> is not among those of the help"])

    def test_tags_that_do_not_match(self):
        self.assertEqual(self.with_piece("<p><i>a</p></i>\n"),
                         ["topics/virus.html: </p> closes nothing", "topics/virus.html: </i> closes nothing"])
        self.assertEqual(self.with_piece("<p>a\n"), ["topics/virus.html: <p> is never closed"])

    def test_a_character_that_is_not_ascii(self):
        self.assertEqual(self.with_piece("<p>\u00fc</p>\n"), ["topics/virus.html: '\u00fc' is not ASCII"])


if __name__ == "__main__":
    unittest.main()
