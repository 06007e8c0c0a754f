"""As lint_selftest.py, for the tests that look at the kinds of log, at the help and at the documents."""

import unittest

from lint_selftest import Tree

KINDS = "framework/ui/kestrix/logs/LogKinds.cpp"
FACTORY = "framework/ui/kestrix/app/LogFactory.cpp"
SAMPLES = "suite/samples/Kinds.cpp"
DAYS = "tests/unit/framework/ui/kestrix/logs/golden"


class Kinds(Tree):
    def setUp(self):
        super().setUp()
        self.write_kinds('{.type = LogTypeVirus,\n     .extension = L"VLG",\n     .querySubType = 2,\n'
                         '     .commandCode = 1},')
        self.write(FACTORY, "constexpr LogClass Classes[] = {\n    {LogTypeVirus, &Create<CZPTLogVir>},\n};\n")
        self.write(SAMPLES, 'constexpr Kind Kinds[] = {\n    {L"VLG", MakeVirusRecords, {12, 3, 8, 2, 40, &Office}},\n};\n')
        self.write_suite("VLG\t2\t1\tvirus\n")
        for language in ("de-DE", "en-US"):
            self.write(f"suite/help/topics/{language}/virus.html", "<p>Viruses.</p>\n")
        for form in ("file", "database"):
            self.write(f"{DAYS}/virus-{form}.day", f"# A day.\nlog: VLG\nform: {form}\n\n[lines]\n")
        self.write("docs/pictures/log-vlg.png", "")

    def write_kinds(self, rows):
        self.write(KINDS, f"constexpr LogKind Kinds[] = {{\n    {rows}\n}};\n")

    def write_suite(self, rows):
        self.write("suite/kinds.tsv", "extension\tsub_type\tpurge_type\ttopic\n" + rows)

    def expect_lack(self, text):
        self.expect_hit(f"{KINDS}:2: VLG {text}", "lint_kinds")

    def test_a_kind_that_has_everything_passes(self):
        self.expect_clean("lint_kinds")

    def test_no_class_is_a_hit(self):
        self.write(FACTORY, "// {LogTypeVirus, &Create<CZPTLogVir>},\n")
        self.expect_lack("has no class")

    def test_no_samples_are_a_hit(self):
        self.write(SAMPLES, "")
        self.expect_lack("has no samples")

    def test_no_row_of_the_suite_is_a_hit(self):
        self.write_suite("")
        self.expect_lack("has no row in suite/kinds.tsv")

    def test_other_numbers_of_the_suite_are_a_hit(self):
        for row in ("VLG\t3\t1\tvirus\n", "VLG\t2\t0\tvirus\n"):
            with self.subTest(row):
                self.write_suite(row)
                self.expect_lack("has another sub type or command code")

    def test_no_help_topic_in_one_language_is_a_hit(self):
        (self.root / "suite/help/topics/de-DE/virus.html").unlink()
        self.expect_lack("has no help topic suite/help/topics/de-DE/virus.html")

    def test_no_golden_day_of_either_form_is_a_hit(self):
        for form, other in (("file", "database"), ("database", "file")):
            with self.subTest(form):
                self.write(f"{DAYS}/virus-{other}.day", f"log: VLG\nform: {other}\n")
                self.write(f"{DAYS}/virus-{form}.day", f"log: SPG\nform: {form}\n")
                self.expect_lack(f"has no golden day of form {form}")

    def test_no_picture_is_a_hit(self):
        (self.root / "docs/pictures/log-vlg.png").unlink()
        self.expect_lack("has no picture docs/pictures/log-vlg.png")

    def test_a_row_that_is_not_read_is_a_hit(self):
        self.write_kinds('{.extension = L"VLG", .type = LogTypeVirus},')
        self.write_suite("")
        self.expect_hit(f"{KINDS}:1: a row is not read", "lint_kinds")

    def test_a_kind_of_the_suite_alone_is_a_hit(self):
        self.write_suite("VLG\t2\t1\tvirus\nXYZ\t9\t9\tvirus\n")
        self.expect_hit("suite/kinds.tsv:1: XYZ is no kind of the viewer", "lint_kinds")


class Links(Tree):
    def test_a_link_to_a_file_a_folder_or_another_place_passes(self):
        self.write("docs/decisions/0001-one.md", "One.\n")
        self.write("docs/a.md", "[a](decisions/0001-one.md#part) [b](decisions) [c](#here) [d](https://www.example.com)\n"
                                "```cpp\nm_text[i](nowhere);\n```\n")
        self.expect_clean("lint_links")

    def test_a_link_that_leads_nowhere_is_a_hit_in_its_line(self):
        for text in ("\n[one](decisions/0001-one.md)\n", "\n![picture](pictures/one.png)\n",
                     "\n[a](a.md) [b](../../a.md)\n"):
            with self.subTest(text):
                self.write("docs/a.md", text)
                self.expect_hit("docs/a.md:2: the link ", "lint_links")


class Help(Tree):
    def setUp(self):
        super().setUp()
        self.write(KINDS, "constexpr LogKind Kinds[] = {\n"
                          "    {.help = 211,\n     .helpBesideReport = 316}, {.help = 299},\n};\n")
        self.write("framework/ui/kestrix/app/Help.h", "inline constexpr UINT HelpNumberOfReport = 241;\n")
        self.write_kinds("211 316", "299")
        self.write_topics("241")

    def write_kinds(self, *numbers):
        self.write_table("suite/kinds.tsv", numbers)

    def write_topics(self, *numbers):
        self.write_table("suite/help/topics.tsv", numbers)

    def write_table(self, path, numbers):
        self.write(path, "file\tcontexts\n" + "".join(f"x\t{each}\n" for each in numbers))

    def test_same_numbers_pass(self):
        self.expect_clean("lint_help")

    def test_number_without_a_topic_is_a_hit(self):
        self.write_kinds("211", "299")
        self.expect_hit(f"{KINDS}:2: the help has no page for 316", "lint_help")

    def test_report_without_a_topic_is_a_hit(self):
        self.write_topics()
        self.expect_hit("framework/ui/kestrix/app/Help.h:1: the help has no page for 241", "lint_help")

    def test_number_that_nobody_asks_for_is_a_hit(self):
        self.write_kinds("211 316", "299 300")
        self.expect_hit("suite/kinds.tsv:3: the viewer never asks for 300", "lint_help")

    def test_number_of_another_topic_that_nobody_asks_for_is_a_hit(self):
        self.write_topics("241", "301")
        self.expect_hit("suite/help/topics.tsv:3: the viewer never asks for 301", "lint_help")

    def test_two_topics_for_one_log_are_a_hit(self):
        self.write_kinds("211", "299 316")
        self.expect_hit(f"{KINDS}:2: the two numbers lead to two topics", "lint_help")

    def test_a_table_that_is_not_found_is_a_hit(self):
        self.write(KINDS, "")
        self.write_kinds()
        self.expect_hit(f"{KINDS}:1: no help number is found", "lint_help")


if __name__ == "__main__":
    unittest.main()
