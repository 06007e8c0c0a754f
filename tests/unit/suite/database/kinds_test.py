#!/usr/bin/env python3
"""Tests of suite/kinds.py: each rule, broken once, is reported; a row becomes what the programs know of a kind.

usage: kinds_test.py REPOSITORY
"""

import pathlib
import sys
import tempfile
import unittest

ROOT = pathlib.Path(sys.argv.pop(1)).resolve()
sys.path.insert(0, str(ROOT / "suite"))
import kinds  # noqa: E402
import tables  # noqa: E402

ROW = {"extension": "ABC", "sub_type": "20", "purge_type": "21", "time_token": "1", "file_forms": "1-3:9 7:8 *:10",
       "contexts": "400", "topic": "abc", "title": "Abc log", "keywords": "abc"}
OTHER = {**ROW, "extension": "DEF", "sub_type": "30", "purge_type": "31", "file_forms": ""}


class KindsTest(unittest.TestCase):
    def read(self, *rows):
        with tempfile.TemporaryDirectory() as folder:
            table = pathlib.Path(folder, "kinds.tsv")
            table.write_text("\n".join("\t".join(cells) for cells in (kinds.COLUMNS, *(row.values() for row in rows))))
            return kinds.read(table)

    def test_the_table_as_it_is_is_read(self):
        extensions = [kind.extension for kind in kinds.read(ROOT / "suite/kinds.tsv")]
        self.assertLessEqual({"VLG", "UPG", "SKP"}, set(extensions))

    def test_a_row_becomes_its_kind_and_its_forms(self):
        source = kinds.source(self.read(ROW, OTHER))
        self.assertIn("constexpr FileForm ABCForms[] = {{1u, 3u, 9}, {7u, 7u, 8}, {0u, 4294967295u, 10}};\n", source)
        self.assertIn('    {L"ABC", 20, 21, 1, ABCForms, "Abc log"},\n    {L"DEF", 30, 31, 1, {}, "Abc log"},\n', source)
        self.assertNotIn("DEFForms", source)

    def test_a_name_that_stands_twice(self):
        for column in ("extension", "sub_type", "purge_type"):
            with self.subTest(column), self.assertRaisesRegex(tables.MalformedTable, f"kinds.tsv:3: the {column} .*twice"):
                self.read(ROW, {**OTHER, column: ROW[column]})

    def test_a_cell_of_another_form(self):
        for column, cell in (("extension", "abc"), ("extension", "ABCD"), ("sub_type", ""), ("purge_type", "-1"),
                             ("time_token", "x"), ("file_forms", "9"), ("file_forms", "1-3:9 "),
                             ("file_forms", "1-:9"), ("file_forms", "*:9,*:8"), ("title", 'Abc "log"')):
            with self.subTest(cell), self.assertRaisesRegex(tables.MalformedTable, f"kinds.tsv:2: the {column} "):
                self.read({**ROW, column: cell})

    def test_other_columns(self):
        with self.assertRaisesRegex(tables.MalformedTable, "kinds.tsv:2: 2 columns instead of 9"):
            self.read({"extension": "ABC", "sub_type": "20"})


if __name__ == "__main__":
    unittest.main()
