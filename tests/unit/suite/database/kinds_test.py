#!/usr/bin/env python3
"""Tests of suite/kinds.py and suite/lines.py: each rule, broken once, is reported; a row becomes what the programs know of a kind.

usage: kinds_test.py REPOSITORY
"""

import pathlib
import sys
import tempfile
import unittest

ROOT = pathlib.Path(sys.argv.pop(1)).resolve()
sys.path.insert(0, str(ROOT / "suite"))
import kinds  # noqa: E402
import lines  # noqa: E402
import tables  # noqa: E402

ROW = {"extension": "ABC", "sub_type": "20", "purge_type": "21", "contexts": "400", "topic": "abc",
       "title": "Abc log", "keywords": "abc"}
OTHER = {**ROW, "extension": "DEF", "sub_type": "30", "purge_type": "31"}
LINES = [("ABC", "1-3", "date time:HHMM kind:number? +detail"), ("ABC", "7", "date time:HHMM -"),
         ("DEF", "*", "time:HHMMSS reason:0-2")]


class KindsTest(unittest.TestCase):
    def read(self, *rows):
        with tempfile.TemporaryDirectory() as folder:
            table = pathlib.Path(folder, "kinds.tsv")
            table.write_text("\n".join("\t".join(cells) for cells in (kinds.COLUMNS, *(row.values() for row in rows))))
            return kinds.read(table)

    def read_lines(self, *rows):
        with tempfile.TemporaryDirectory() as folder:
            table = pathlib.Path(folder, "lines.tsv")
            table.write_text("\n".join("\t".join(cells) for cells in (lines.COLUMNS, *rows)))
            return lines.read(table)

    def test_the_table_as_it_is_is_read(self):
        extensions = [kind.extension for kind in kinds.read(ROOT / "suite/kinds.tsv")]
        self.assertLessEqual({"VLG", "UPG", "SKP"}, set(extensions))

    def test_the_lines_as_they_are_are_read_and_fit_the_kinds(self):
        source = kinds.source(kinds.read(ROOT / "suite/kinds.tsv"), lines.read(ROOT / "suite/lines.tsv"))
        self.assertIn("constexpr LineForm VLGForms[] = {{1u, 3u, VLGTokens0}, {0u, 4294967295u, VLGTokens1}};", source)

    def test_a_row_becomes_its_kind_and_its_forms(self):
        source = kinds.source(self.read(ROW, OTHER), self.read_lines(*LINES))
        self.assertIn("""constexpr TokenForm ABCTokens0[] = {
    {L"date", Rule::Any, 0, 0, false, false},
    {L"time", Rule::Minutes, 0, 0, false, false},
    {L"kind", Rule::Number, -2147483648, 4294967295, true, false},
    {L"detail", Rule::Any, 0, 0, false, true},
};
""", source)
        self.assertIn("constexpr LineForm ABCForms[] = {{1u, 3u, ABCTokens0}, {7u, 7u, ABCTokens1}};\n", source)
        self.assertIn('    {L"reason", Rule::Number, 0, 2, false, false},\n', source)
        self.assertIn('    {L"ABC", 20, 21, 1, ABCForms, "Abc log"},\n'
                      '    {L"DEF", 30, 31, 0, DEFForms, "Abc log"},\n', source)

    def test_lines_of_another_form(self):
        for cell, message in (("date -", "no token is a time"), ("time:HHMM x:text", "there is no rule 'text'"),
                              ("time:HHMM  x", "the token '' has another form"),
                              ("time:HHMM Kind", "the token 'Kind' has another form"),
                              ("time:HHMM +x y", "'y' stands after one that a line may lack")):
            with self.subTest(cell), self.assertRaisesRegex(tables.MalformedTable, f"lines.tsv:2: {message}"):
                self.read_lines(("ABC", "*", cell))
        with self.assertRaisesRegex(tables.MalformedTable, "lines.tsv:2: the sources '1-' have another form"):
            self.read_lines(("ABC", "1-", "time:HHMM"))

    def test_lines_and_kinds_that_do_not_go_together(self):
        for rows, message in ((LINES[:2], "kinds.tsv:3: DEF has no form of lines"),
                              ([*LINES, ("ABC", "*", "time:HHMM")],
                               "lines.tsv:5: the time of ABC is another token than before"),
                              ([*LINES, ("GHI", "*", "time:HHMM")], "lines.tsv:5: GHI is no kind of log")):
            with self.subTest(message), self.assertRaisesRegex(tables.MalformedTable, message):
                kinds.source(self.read(ROW, OTHER), self.read_lines(*rows))

    def test_a_name_that_stands_twice(self):
        for column in ("extension", "sub_type", "purge_type"):
            with self.subTest(column), self.assertRaisesRegex(tables.MalformedTable, f"kinds.tsv:3: the {column} .*twice"):
                self.read(ROW, {**OTHER, column: ROW[column]})

    def test_a_cell_of_another_form(self):
        for column, cell in (("extension", "abc"), ("extension", "ABCD"), ("sub_type", ""), ("purge_type", "-1"),
                             ("title", 'Abc "log"')):
            with self.subTest(cell), self.assertRaisesRegex(tables.MalformedTable, f"kinds.tsv:2: the {column} "):
                self.read({**ROW, column: cell})

    def test_other_columns(self):
        with self.assertRaisesRegex(tables.MalformedTable, "kinds.tsv:2: 2 columns instead of 7"):
            self.read({"extension": "ABC", "sub_type": "20"})


if __name__ == "__main__":
    unittest.main()
