#!/usr/bin/env python3
"""Tests of resource/texts.py: each rule, broken once, is reported with its line; a good table passes.

usage: texts_test.py RESOURCE_FOLDER
"""

import pathlib
import sys
import tempfile
import unittest

RESOURCES = pathlib.Path(sys.argv.pop(1)).resolve()
sys.dont_write_bytecode = True
sys.path.insert(0, str(RESOURCES))
import pseudo  # noqa: E402
import texts  # noqa: E402


class TextsTest(unittest.TestCase):
    def run_with(self, *rows, header="id\trole\tformat\tconstraint\ten-US\tde-DE", language="en-US"):
        """The written script, or the message with which the program ended."""
        with tempfile.TemporaryDirectory() as folder:
            source, target = pathlib.Path(folder, "texts.tsv"), pathlib.Path(folder, "Texts.rc")
            source.write_text("\n".join([header, *rows]) + "\n", encoding="utf-8")
            try:
                texts.main(str(source), language, str(target))
            except SystemExit as end:
                return str(end.code).replace(folder, "")
            return target.read_text(encoding="utf-8")

    def expect_error(self, error, *rows, **options):
        self.assertIn(error, self.run_with(*rows, **options))

    def test_a_good_table_becomes_a_string_table(self):
        script = self.run_with("1\tr\t%s\t\tfor %s \tfür %s", '2\tr\t\t\ta "b" \\\tc', language="en-US")
        self.assertIn("#pragma code_page(65001)\nLANGUAGE 0x9, 0x1\nSTRINGTABLE\nBEGIN\n", script)
        self.assertIn('    1 "for %s "\n', script)
        self.assertIn('    2 "a ""b"" \\\\"\n', script)

    def test_another_language_is_another_column(self):
        self.assertIn('1 "für %s"', self.run_with("1\tr\t%s\t\tfor %s\tfür %s", language="de-DE"))
        self.expect_error("no column for the language fr-FR", "1\tr\t\t\ta\tb", language="fr-FR")

    def test_ids_are_unique_ordered_and_16_bits(self):
        self.expect_error(":3: the id 1 stands twice", "1\tr\t\t\ta\tb", "1\tr\t\t\tc\td")
        self.expect_error(":3: the id 1 stands behind 2", "2\tr\t\t\ta\tb", "1\tr\t\t\tc\td")
        self.expect_error(":2: the id '65536' is no number", "65536\tr\t\t\ta\tb")

    def test_a_line_has_every_column(self):
        self.expect_error(":2: 5 columns instead of 6", "1\tr\t\t\ta")

    def test_no_text_is_empty(self):
        self.expect_error("de-DE: the text is empty", "1\tr\t\t\ta\t ")

    def test_arguments_are_the_same_in_every_language(self):
        self.expect_error("de-DE: 'x %d' does not have the format '%s'", "1\tr\t%s\t\tx %s\tx %d")
        self.expect_error("does not have the format '%u,%s'", "1\tr\t%u,%s\t\t%u of %s\t%s von %u")
        self.expect_error("does not have the format 'no argument'", "1\tr\t\t\t50 %\t50 Prozent")

    def test_the_texts_with_places_for_values(self):
        """A language file with other places is refused, whatever the language: the viewer fills these."""
        places = {54: "%s", 67: "%u", 75: "%u", 82: "wcsftime", 312: "%s", 321: "%u", 322: "%u", 323: "%u", 326: "%u",
                  327: "%u", 517: "%d", 541: "%d", 543: "%u,%s", 575: "%s", 576: "%s", 815: "%u", 816: "%u"}
        _, rows = texts.read_rows(RESOURCES / "texts.tsv")
        self.assertEqual(places, {row["id"]: row["format"] for row in rows
                                  if row["format"].startswith("%") or row["format"] == "wcsftime"})

    def test_a_place_is_written_as_the_format_says_and_not_otherwise(self):
        for text in ("none", "%s%s%n%d", "%s %s", "%d", "%n", "%S", "%hs", "%ls", "%5s", "%-s", "%.2s", "%*s", "%1$s",
                     "%s %", "% s"):
            with self.subTest(text):
                self.expect_error(f"'{text}' does not have the format '%s'", f"1\tr\t%s\t\ta %s\t{text}")
        self.assertIn("STRINGTABLE", self.run_with("1\tr\t%s\t\t100 %% %s\t%s"))

    def test_formats_of_values(self):
        self.expect_error("'x1' does not have the format 'numeric'", "1\tr\tnumeric\t\tx1\t1")
        self.expect_error("'12,0,9' does not have the format 'font style'", "1\tr\tfont style\t\t12,0,9\t1,0,9")
        self.expect_error("does not have the format 'file filter'", "1\tr\tfile filter\t\tA|*.CSV||\tB")
        self.expect_error("does not have the format 'file filter'",
                          "1\tr\tfile filter\t\tA|*.CSV|B|*.txt||\tA|*.CSV|B|*.TXT||")
        self.assertIn("STRINGTABLE", self.run_with("1\tr\tfile filter\t\tA|*.CSV|B|*.TXT||\tA|*.CSV|B|*.TXT||"))
        for text in ("%H", "%", "%#d", "%s", "no date"):
            with self.subTest(text):
                self.expect_error("does not have the format 'wcsftime'", f"1\tr\twcsftime\t\t%Y\t{text}")

    def test_constraints_of_one_text(self):
        for constraint, text in [("export line", 'a "b"'), ("begins with blank", "a"), ("ends with blank", "a"),
                                 ("ends with colon", "a"), ("ends with colon", "a:b:"), ("no colon", "a:"),
                                 ("no number", "6"), ("at most 2 characters", "abc")]:
            with self.subTest(constraint):
                self.expect_error(f"'{text}' breaks the constraint '{constraint}'", f"1\tr\t\t{constraint}\t{text}\tb")

    def test_constraints_on_another_text(self):
        for constraint, text in [("differs from 2", "old"), ("same as 2", "new:"), ("does not begin with 2", "older")]:
            with self.subTest(constraint):
                self.expect_error(f"'{text}' breaks", f"1\tr\t\t{constraint}\t{text}\tx", "2\tr\t\t\told\tx")

    def test_same_as_overlooks_the_colon(self):
        self.assertIn("STRINGTABLE", self.run_with("1\tr\t\tsame as 2\told:\tx", "2\tr\t\t\told\tx"))

    def test_texts_of_one_code_table_differ(self):
        self.expect_error(":3: en-US: 'A' is also the text 1 (letters)",
                          "1\tr\t\tunique in letters\ta\tb", "2\tr\t\tunique in letters\tA\tc")

    def test_a_caption_becomes_a_name_for_the_templates(self):
        rows = ("1\tr\t\t\ta\tb", 'CAPTION_OK\tr\t\t\t"OK"\tGut')
        self.assertIn('#define CAPTION_OK """OK"""\nSTRINGTABLE\nBEGIN\n    1 "a"\nEND\n', self.run_with(*rows))
        self.assertIn('LANGUAGE 0x7, 0x1\n#define CAPTION_OK "Gut"\n', self.run_with(*rows, language="de-DE"))
        self.expect_error(":3: the id 1 stands behind CAPTION_OK", *reversed(rows))

    def test_a_language_that_lacks_a_text_does_not_build(self):
        self.expect_error(":2: de-DE: the text is empty", "CAPTION_OK\tr\t\t\tOK\t", language="de-DE")
        self.expect_error(":2: 5 columns instead of 6", "CAPTION_OK\tr\t\t\tOK")

    def test_a_column_whose_name_is_no_language(self):
        self.expect_error("German is no language name", "1\tr\t\t\ta\tb", language="German",
                          header="id\trole\tformat\tconstraint\ten-US\tGerman")

    def test_no_access_key_is_used_twice_in_a_dialog(self):
        rows = ["CAPTION_A\tr\t\taccess key in form\t&Yes\t&Ja", "CAPTION_B\tr\t\taccess key in form\tMa&y\tJe"]
        self.expect_error(":3: en-US: the access key 'y' of 'Ma&y' is also that of CAPTION_A (form)", *rows)
        self.expect_error(":3: de-DE: 'Je' has no access key", *rows)
        for text in ("Ja&&", "J&a&", "Ja&", "&\u3042"):
            self.expect_error(f"de-DE: '{text}' has no access key", rows[0], rows[1].replace("\tJe", "\t" + text))
        self.assertIn("STRINGTABLE", self.run_with(rows[0], "CAPTION_B\tr\t\taccess key in other\tMa&y\tJe(&J)"))

    def test_a_mark_of_an_access_key_stands_nowhere_else(self):
        self.expect_error("de-DE: 'b&c' has the mark of an access key", "1\tr\t\t\ta\tb&c")

    def test_a_fixed_text_is_not_translated(self):
        self.expect_error("the same in every language", "1\tr\t\tfixed\tone\teins")

    def test_unknown_words_are_errors(self):
        self.expect_error("unknown format 'hex'", "1\tr\thex\t\ta\tb")
        self.expect_error("unknown constraint 'pretty'", "1\tr\t\tpretty\ta\tb")

    def test_all_violations_are_told_at_once(self):
        message = self.run_with("1\tr\tnumeric\t\tx\t1", "2\tr\tnumeric\t\ty\t1")
        self.assertEqual(2, len(message.splitlines()))


class PseudoTest(unittest.TestCase):
    def test_letters_get_accents_and_the_text_grows_by_two_fifths(self):
        for plain in ("Help", "No threats found", "The log could not be exported."):
            made = pseudo.text(plain, "", "")
            self.assertGreaterEqual(len(made), 1.4 * len(plain) - 1)
            self.assertFalse(set(pseudo.PLAIN) & set(made))

    def test_places_keys_blanks_and_ends_stay(self):
        for plain, pattern in (("%u of %s", "^%u [^%]* %s[^%]+$"), ("Da&tes", "^[^&]*&t[^&]*$"), (" KB", "^ [^ ]+$"),
                               ("Last used ", "^[^ ].* $"), ("&Log:", "^&L[^:]*:$"), ("&Export...", r"^&E[^.]*\.\.\.$")):
            self.assertRegex(pseudo.text(plain, "", ""), pattern)

    def test_values_stay(self):
        for plain, form, constraint in (("1,0,16", "font style", ""), ("%Y", "wcsftime", ""),
                                        ("UNKNOWN", "", "fixed; differs from 52")):
            self.assertEqual(pseudo.text(plain, form, constraint), plain)

    def test_the_texts_of_the_program_keep_all_rules(self):
        with tempfile.TemporaryDirectory() as folder:
            target = pathlib.Path(folder, "Texts.rc")
            texts.main(str(RESOURCES / "texts.tsv"), pseudo.LANGUAGE, str(target))
            self.assertIn("LANGUAGE 0x101, 0x1\n", target.read_text(encoding="utf-8"))


if __name__ == "__main__":
    unittest.main()
