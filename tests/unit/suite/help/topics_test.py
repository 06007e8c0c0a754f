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

    def violations(self, language="en-US"):
        names = topics.screen_texts(ROOT / "resource/texts.tsv", language)
        return list(topics.violations(self.folder, language, topics.read_table(self.folder, language), names))

    def in_kinds(self, old, new):
        self.replace(pathlib.Path(self.kinds), old, new)

    def in_topics(self, old, new):
        self.replace(self.folder / "topics.tsv", old, new)

    def replace(self, table, old, new):
        text = table.read_text(encoding="utf-8")
        self.assertIn(old, text)
        table.write_text(text.replace(old, new, 1), encoding="utf-8")

    def with_piece(self, piece, language="en-US"):
        (self.folder / "topics" / language / "virus.html").write_text(piece, encoding="utf-8")
        return self.violations(language)

    def test_the_topics_as_they_are_pass_in_every_language(self):
        languages = (ROOT / "resource/texts.tsv").read_text(encoding="utf-8").split("\n")[0].split("\t")[4:]
        self.assertEqual(set(topics.LANGUAGES), set(languages))
        for language in languages:
            with self.subTest(language):
                self.assertEqual(self.violations(language), [])

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
        self.assertEqual(self.violations(), ["topics.tsv:5: the title 'Export & more' is not of letters, digits, blanks"
                                             " and hyphens alone"])

    def test_a_topic_that_the_index_lacks(self):
        self.in_kinds(VIRUS_TOPIC, VIRUS_TOPIC.replace("viruses", ""))
        self.assertEqual(self.violations(), ["kinds.tsv:2: the index has nothing for 'Virus log'"])

    def test_a_topic_that_follows_none(self):
        self.in_topics("firewall\t\tallow", "walls\t\tallow")
        with self.assertRaisesRegex(topics.MalformedTable, "topics.tsv:11: there is no topic 'walls' before this one"):
            self.violations()

    def test_a_line_with_a_column_too_few(self):
        self.in_topics("export\tExport entries\t", "export\tExport entries")
        with self.assertRaisesRegex(topics.MalformedTable, "topics.tsv:5: 4 columns instead of 5"):
            self.violations()

    def test_a_context_that_is_no_number(self):
        self.in_kinds("211 316", "211, 316")
        with self.assertRaisesRegex(topics.MalformedTable, "kinds.tsv:2: the contexts are no numbers"):
            self.violations()

    def test_a_piece_that_is_missing(self):
        (self.folder / "topics/en-US/scans.html").unlink()
        self.assertIn("topics/en-US/scans.html: the file is missing", self.violations())

    def test_a_piece_that_no_line_names(self):
        (self.folder / "topics/en-US/more.html").write_text("<p>More.</p>\n")
        self.assertEqual(self.violations(), ["topics/en-US/more.html: no topic has it"])

    def test_a_link_that_leads_nowhere(self):
        for link in ("more.html", "https://www.example.com/", "Spyware.html"):
            self.assertEqual(self.with_piece(f'<p><a href="{link}">x</a></p>\n'),
                             [f"topics/en-US/virus.html: the link {link} leads nowhere"])

    def test_a_name_that_the_viewer_does_not_show(self):
        self.assertEqual(self.with_piece("<p><b>Virus\nname</b></p>\n"),
                         ["topics/en-US/virus.html: the viewer has no text 'Virus name'"])

    def test_names_stand_without_access_key_colon_and_dots(self):
        piece = "<p><b>Export</b> <b>Location</b> <b>Log</b> <b>Pattern\nversion</b></p>\n"
        self.assertEqual(self.with_piece(piece), [])

    def test_scripts_styles_and_pictures_are_refused(self):
        self.assertEqual(self.with_piece('<p style="x">a</p><script>b</script><ul><li>c</li></ul>\n'),
                         ["topics/en-US/virus.html: <p> has the attribute style",
                          "topics/en-US/virus.html: the tag <script> is not among those of the help"])

    def test_tags_that_do_not_match(self):
        self.assertEqual(self.with_piece("<p><i>a</p></i>\n"),
                         ["topics/en-US/virus.html: </p> closes nothing", "topics/en-US/virus.html: </i> closes nothing"])
        self.assertEqual(self.with_piece("<p>a\n"), ["topics/en-US/virus.html: <p> is never closed"])

    def test_a_character_that_the_code_page_of_the_language_lacks(self):
        self.assertEqual(self.with_piece("<p>\u00fc</p>\n"),
                         ["topics/en-US/virus.html: '\u00fc' has no form in the code page (ascii)"])
        self.assertEqual(self.with_piece("<p>\u00fc</p>\n", "de-DE"), [])
        self.assertEqual(self.with_piece("<p>\u75c5</p>\n", "de-DE"),
                         ["topics/de-DE/virus.html: '\u75c5' has no form in the code page (cp1252)"])
        self.assertEqual(self.with_piece("<p>\u75c5</p>\n", "zh-CN"), [])

    def test_a_name_of_another_language(self):
        self.assertEqual(self.with_piece("<p><b>Abbrechen</b> <b>Cancel</b></p>\n", "de-DE"),
                         ["topics/de-DE/virus.html: the viewer has no text 'Cancel'"])
        self.assertEqual(self.with_piece("<p><b>\u51fa\u529b</b></p>\n", "ja-JP"), [])

    def test_a_topic_that_a_language_lacks(self):
        titles = self.folder / "topics/de-DE/titles.tsv"
        self.replace(titles, "scans\t\u00dcberpr\u00fcfungsprotokoll\t\u00dcberpr\u00fcfungen\n", "")
        with self.assertRaisesRegex(topics.MalformedTable, "de-DE/titles.tsv: the topic 'scans' is missing"):
            self.violations("de-DE")

    def test_a_title_for_no_topic(self):
        self.replace(self.folder / "topics/de-DE/titles.tsv", "scans\t", "scan\t")
        with self.assertRaisesRegex(topics.MalformedTable, "titles.tsv:23: there is no topic 'scan'"):
            self.violations("de-DE")

    def test_a_language_without_its_folder_or_its_row(self):
        shutil.rmtree(self.folder / "topics/ja-JP")
        with self.assertRaises(FileNotFoundError):
            self.violations("ja-JP")
        with self.assertRaisesRegex(topics.MalformedTable, "languages.py does not have fr-FR"):
            topics.read_table(self.folder, "fr-FR")


if __name__ == "__main__":
    unittest.main()
