#!/usr/bin/env python3
"""Tests of the compiled help file: what the viewer asks for is in it, and it is the same wherever it is made.

usage: help_file_test.py REPOSITORY HELP.CHM CHMCMD CHMLS
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
ROOT, CHM = pathlib.Path(sys.argv.pop(1)).resolve(), pathlib.Path(sys.argv.pop(1)).resolve()

sys.path.insert(0, str(ROOT / "suite/help"))
import topics  # noqa: E402

# What the viewer asks for: the numbers of each log, which the lint tests compare with the viewer's, and the heading.
TOPICS = topics.read_table(ROOT / "suite/help")
ASKED = {topic.title: topic.contexts for topic in TOPICS if topic.level == 2 and topic.contexts}
REPORT = (241, "Read the report")


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


def make(target, **environment):
    subprocess.run([sys.executable, "-B", ROOT / "suite/help/help.py", ROOT / "suite/help",
                    ROOT / "resource/texts.tsv", ROOT / "resource/en-US/Kestrix.rc", target, CHMCMD, CHMLS],
                   check=True, env={**os.environ, **environment})


class HelpFileTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = pathlib.Path(folder.name)
        subprocess.run([CHMLS, "extractall", CHM, cls.folder], check=True, stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL)
        cls.texts = (cls.folder / "#STRINGS").read_bytes()

    def read(self, name):
        return (self.folder / name).read_text(encoding="utf-8")

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
        self.assertEqual(ASKED["Virus log"], [211, 316])
        for heading, numbers in ASKED.items():
            for number in numbers:
                with self.subTest(number=number):
                    self.assertEqual(self.heading(number), heading)

    def test_the_number_of_the_report_leads_to_its_topic(self):
        self.assertEqual(self.heading(REPORT[0]), REPORT[1])

    def test_no_other_number_is_in_the_file(self):
        asked = {number for numbers in ASKED.values() for number in numbers} | {REPORT[0]}
        self.assertEqual(set(self.contexts()), asked)

    def test_the_help_opens_with_its_first_topic(self):
        system = (self.folder / "#SYSTEM").read_bytes()
        entries, place = {}, 4
        while place < len(system):
            kind, length = struct.unpack_from("<HH", system, place)
            entries[kind] = system[place + 4:place + 4 + length].rstrip(b"\0").decode("latin-1")
            place += 4 + length
        self.assertEqual(entries[2], "start.html")
        self.assertIn("<h1>The log viewer</h1>", self.read("start.html"))

    def test_every_link_leads_to_a_file_of_the_help(self):
        count = 0
        for path in [*self.folder.glob("*.html"), self.folder / "vdhelp.hhc", self.folder / "vdhelp.hhk"]:
            for target in Links(path.read_text(encoding="utf-8")).targets:
                self.assertTrue((self.folder / target).is_file(), f"{path.name}: {target}")
                count += 1
        self.assertGreater(count, 100)

    def test_every_page_is_in_the_contents_and_in_the_index(self):
        pages = {path.name for path in self.folder.glob("*.html")}
        self.assertEqual(pages, {f"{topic.file}.html" for topic in TOPICS})
        self.assertEqual(set(Links(self.read("vdhelp.hhc")).targets), pages)
        self.assertEqual(set(Links(self.read("vdhelp.hhk")).targets), pages)

    def test_the_logs_stand_below_their_heading_in_the_contents(self):
        levels, level = {}, 0
        for line in self.read("vdhelp.hhc").splitlines():
            level += (line == "<ul>") - (line == "</ul>")
            if name := re.search('name="Name" value="(.*)"', line):
                levels[name[1]] = level
        self.assertEqual(level, 0)
        self.assertEqual({levels[heading] for heading in ASKED}, {2})
        self.assertEqual([levels[name] for name in ("The log viewer", "The logs", "Messages of the viewer")], [1] * 3)

    def test_no_path_of_the_machine_is_in_the_file(self):
        self.assertNotIn(b"/", self.texts)
        self.assertNotIn(b"/", (self.folder / "#URLSTR").read_bytes())

    def test_it_is_the_same_wherever_and_whenever_it_is_made(self):
        with tempfile.TemporaryDirectory() as folder:
            work = pathlib.Path(folder, "a longer name than that of the folder before")
            work.mkdir()
            make(work / "again.chm", TMPDIR=str(work))
            self.assertEqual((work / "again.chm").read_bytes(), CHM.read_bytes())


if __name__ == "__main__":
    unittest.main()
