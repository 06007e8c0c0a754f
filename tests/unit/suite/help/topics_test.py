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

VIRUS_TOPIC = "\t211 316\tvirus\tVirus log\tviruses\n"


class TopicsTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name, "help")
        shutil.copytree(ROOT / "suite/help", self.folder)
        self.kinds = shutil.copy(ROOT / "suite/kinds.tsv", folder.name)

    def violations(self):
        names = topics.screen_texts(ROOT / "resource/texts.tsv", ROOT / "resource/en-US/Kestrix.rc")
        return list(topics.violations(self.folder, topics.read_table(self.folder), names))

    def in_kinds(self, old, new):
        self.replace(pathlib.Path(self.kinds), old, new)

    def in_topics(self, old, new):
        self.replace(self.folder / "topics.tsv", old, new)

    def replace(self, table, old, new):
        text = table.read_text()
        self.assertIn(old, text)
        table.write_text(text.replace(old, new, 1))

    def with_piece(self, piece):
        (self.folder / "topics/virus.html").write_text(piece)
        return self.violations()

    def test_the_topics_as_they_are_pass(self):
        self.assertEqual(self.violations(), [])

    def test_the_kinds_of_log_stand_below_their_heading_and_what_follows_one_after_it(self):
        contents = [(topic.level, topic.file) for topic in topics.read_table(self.folder)]
        logs = contents.index((1, "logs"))
        self.assertEqual(contents[logs + 1:logs + 7],
                         [(2, "virus"), (2, "spyware"), (2, "updates"), (2, "firewall"), (2, "allow"),
                          (2, "webthreats")])
        last = topics.kinds.read(ROOT / "suite/kinds.tsv")[-1]
        self.assertEqual(contents[-2:], [(2, last.topic), (1, "messages")])

    def test_a_context_that_stands_twice(self):
        self.in_kinds("265 312", "265 312 316")
        self.assertEqual(self.violations(), ["kinds.tsv:3: the context 316 stands twice"])

    def test_a_title_that_stands_twice(self):
        self.in_kinds("Spyware log", "Virus log")
        self.assertEqual(self.violations(), ["kinds.tsv:3: the title Virus log stands twice"])

    def test_a_file_that_stands_twice(self):
        self.in_topics("\tstart\t", "\tspyware\t")
        self.assertIn("kinds.tsv:3: the file spyware stands twice", self.violations())

    def test_a_title_that_the_compiler_would_misread(self):
        self.in_topics("Export entries", "Export & more")
        self.assertEqual(self.violations(),
                         ["topics.tsv:4: the title 'Export & more' is not of letters and blanks alone"])

    def test_a_topic_that_the_index_lacks(self):
        self.in_kinds(VIRUS_TOPIC, VIRUS_TOPIC.replace("viruses", ""))
        self.assertEqual(self.violations(), ["kinds.tsv:2: the index has nothing for 'Virus log'"])

    def test_a_topic_that_follows_none(self):
        self.in_topics("firewall\t\tallow", "walls\t\tallow")
        with self.assertRaisesRegex(topics.MalformedTable, "topics.tsv:10: there is no topic 'walls' before this one"):
            self.violations()

    def test_a_line_with_a_column_too_few(self):
        self.in_topics("export\tExport entries\t", "export\tExport entries")
        with self.assertRaisesRegex(topics.MalformedTable, "topics.tsv:4: 4 columns instead of 5"):
            self.violations()

    def test_a_context_that_is_no_number(self):
        self.in_kinds("211 316", "211, 316")
        with self.assertRaisesRegex(topics.MalformedTable, "kinds.tsv:2: the contexts are no numbers"):
            self.violations()

    def test_a_piece_that_is_missing(self):
        (self.folder / "topics/scans.html").unlink()
        self.assertIn("topics/scans.html: the file is missing", self.violations())

    def test_a_piece_that_no_line_names(self):
        (self.folder / "topics/more.html").write_text("<p>More.</p>\n")
        self.assertEqual(self.violations(), ["topics/more.html: no topic has it"])

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
