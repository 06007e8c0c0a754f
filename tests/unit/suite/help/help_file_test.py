#!/usr/bin/env python3
"""Tests of the compiled help files: what the viewer asks for is in each, and it is the same wherever it is made.

usage: help_file_test.py REPOSITORY FOLDER CHMCMD CHMLS    with the help files in FOLDER
"""

import html.parser
import os
import pathlib
import re
import struct
import subprocess
import sys
import tempfile
import unittest

CHMCMD, CHMLS = sys.argv.pop(3), sys.argv.pop(3)
ROOT, HELP_FILES = pathlib.Path(sys.argv.pop(1)).resolve(), pathlib.Path(sys.argv.pop(1)).resolve()

sys.path.insert(0, str(ROOT / "suite/help"))
import topics  # noqa: E402
from languages import ENGLISH, LANGUAGES  # noqa: E402

VERSION = (ROOT / "VERSION").read_text(encoding="utf-8").strip()
REPORT = 241


class Links(html.parser.HTMLParser):
    def __init__(self, text):
        super().__init__()
        self.targets = []
        self.feed(text)

    def handle_starttag(self, tag, attributes):
        attributes = dict(attributes)
        if tag in ("a", "link"):
            self.targets.append(attributes["href"])
        if tag == "param" and attributes["name"] == "Local":
            self.targets.append(attributes["value"])


def make(target, language, **environment):
    subprocess.run([sys.executable, "-B", ROOT / "suite/help/help.py", ROOT / "suite/help",
                    ROOT / "resource/texts.tsv", language, target, CHMCMD, CHMLS],
                   check=True, env={**os.environ, **environment})


class HelpFile:
    """The tests of one language, whose name the classes below have."""

    @classmethod
    def setUpClass(cls):
        cls.codec = LANGUAGES[cls.language].codec
        cls.chm = HELP_FILES / ("vdhelp.chm" if cls.language == ENGLISH else f"vdhelp.{cls.language}.chm")
        cls.topics = topics.read_table(ROOT / "suite/help", cls.language)
        # What the viewer asks for: the numbers of each log, which the lint tests compare with the viewer's.
        cls.asked = {topic.title: topic.contexts for topic in cls.topics if topic.level == 2 and topic.contexts}
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = pathlib.Path(folder.name)
        subprocess.run([CHMLS, "extractall", cls.chm, cls.folder], check=True, stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL)
        cls.texts = (cls.folder / "#STRINGS").read_bytes()

    def read(self, name):
        return (self.folder / name).read_text(encoding=self.codec)

    def title(self, file):
        return next(topic.title for topic in self.topics if topic.file == file)

    def contexts(self):
        """The numbers of #IVB with the page of each."""
        table = (self.folder / "#IVB").read_bytes()
        length, = struct.unpack_from("<I", table)
        self.assertEqual(len(table), 4 + length)
        rows = list(struct.iter_unpack("<II", table[4:]))
        self.assertEqual(len(dict(rows)), len(rows), "a number stands twice")
        return {number: self.texts[place:self.texts.index(b"\0", place)].decode() for number, place in rows}

    def heading(self, number):
        return re.search("<h1>(.*)</h1>", self.read(self.contexts()[number]))[1]

    def test_the_number_of_each_log_leads_to_its_topic(self):
        self.assertEqual(self.asked[self.title("virus")], [211, 316])
        for heading, numbers in self.asked.items():
            for number in numbers:
                with self.subTest(number=number):
                    self.assertEqual(self.heading(number), heading)

    def test_the_number_of_the_report_leads_to_its_topic(self):
        self.assertEqual(self.heading(REPORT), self.title("report"))

    def test_no_other_number_is_in_the_file(self):
        asked = {number for numbers in self.asked.values() for number in numbers} | {REPORT}
        self.assertEqual(set(self.contexts()), asked)

    def test_the_help_opens_with_its_first_topic(self):
        system = (self.folder / "#SYSTEM").read_bytes()
        entries, place = {}, 4
        while place < len(system):
            kind, length = struct.unpack_from("<HH", system, place)
            entries[kind] = system[place + 4:place + 4 + length]
            place += 4 + length
        self.assertEqual(entries[2], b"start.html\0")
        self.assertIn(f"<h1>{self.title('start')}</h1>", self.read("start.html"))
        language = LANGUAGES[self.language]
        self.assertEqual(entries[3], f"{language.title} {VERSION}".encode(self.codec) + b"\0")
        self.assertEqual(struct.unpack_from("<I", entries[4])[0], int(language.identifier.split()[0], 16))

    def test_every_link_leads_to_a_file_of_the_help(self):
        count = 0
        for path in [*self.folder.glob("*.html"), self.folder / "vdhelp.hhc", self.folder / "vdhelp.hhk"]:
            for target in Links(self.read(path.name)).targets:
                self.assertTrue((self.folder / target).is_file(), f"{path.name}: {target}")
                count += 1
        self.assertGreater(count, 100)

    def test_every_page_is_in_the_contents_and_in_the_index(self):
        pages = {path.name for path in self.folder.glob("*.html")}
        self.assertEqual(pages, {f"{topic.file}.html" for topic in self.topics})
        self.assertEqual(set(Links(self.read("vdhelp.hhc")).targets), pages)
        self.assertEqual(set(Links(self.read("vdhelp.hhk")).targets), pages)

    def test_the_logs_stand_below_their_heading_in_the_contents(self):
        levels, level = {}, 0
        for line in self.read("vdhelp.hhc").splitlines():
            level += (line == "<ul>") - (line == "</ul>")
            if name := re.search('name="Name" value="(.*)"', line):
                levels[name[1]] = level
        self.assertEqual(level, 0)
        self.assertEqual({levels[heading] for heading in self.asked}, {2})
        self.assertEqual([levels[self.title(file)] for file in ("start", "logs", "messages")], [1] * 3)

    def test_the_window_has_a_search_where_the_compiler_finds_all_words(self):
        windows = (self.folder / "#WINDOWS").read_bytes()
        count, size = struct.unpack_from("<II", windows)
        for number in range(count):
            panes, = struct.unpack_from("<I", windows, 8 + number * size + 16)
            self.assertEqual(bool(panes & 0x400), self.language == ENGLISH)

    def test_no_path_of_the_machine_is_in_the_file(self):
        self.assertNotIn(b"/", self.texts)
        self.assertNotIn(b"/", (self.folder / "#URLSTR").read_bytes())

    def test_it_is_the_same_wherever_and_whenever_it_is_made(self):
        with tempfile.TemporaryDirectory() as folder:
            work = pathlib.Path(folder, "a longer name than that of the folder before")
            work.mkdir()
            make(work / "again.chm", self.language, TMPDIR=str(work))
            self.assertEqual((work / "again.chm").read_bytes(), self.chm.read_bytes())


for name in LANGUAGES:
    test = f"HelpFileTest_{name.replace('-', '_')}"
    globals()[test] = type(test, (HelpFile, unittest.TestCase), {"language": name})


if __name__ == "__main__":
    unittest.main()
