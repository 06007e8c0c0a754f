"""Each lint test is fed small trees: a clean one that passes, and bad ones with the hit that it has to print."""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

HERE = pathlib.Path(__file__).parent
COMPILER = "x86_64-w64-mingw32-g++-posix"


class Tree(unittest.TestCase):
    """A folder that a test fills with files and hands to a lint test."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)

    def write(self, path, text):
        file = self.root / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text, encoding="utf-8")

    def run_lint(self, name, *arguments):
        return subprocess.run([sys.executable, "-B", HERE / f"{name}.py", self.root, *arguments],
                              capture_output=True, text=True, check=False)

    def expect_clean(self, name, *arguments):
        result = self.run_lint(name, *arguments)
        self.assertEqual((result.stdout, result.stderr, result.returncode), ("", "", 0))

    def expect_hit(self, start, name, *arguments):
        """One finding and no other, with this start."""
        result = self.run_lint(name, *arguments)
        self.assertEqual(result.returncode, 1, result.stdout + result.stderr)
        rows = result.stdout.splitlines()
        self.assertEqual(len(rows), 1, result.stdout)
        self.assertTrue(rows[0].startswith(start), rows[0])


class Includes(Tree):
    def setUp(self):
        super().setUp()
        for path in ("platform/dialog/Dialog.h", "common/VdCommon/Text.h", "common/OrlDbMg.h", "common/Frwk.idl",
                     "common/Utility.h", "framework/ui/kestrix/logs/Log.h", "framework/ui/kestrix/app/Page.h",
                     "resource/resource.h", "suite/VdDbg/Writer.h", "tests/support/Support.h"):
            self.write(path, "")

    def test_down_is_free(self):
        self.write("framework/ui/kestrix/logs/Log.cpp",
                   '#include "framework/ui/kestrix/logs/Log.h"\n#include <windows.h>\n#include <sys/stat.h>\n'
                   '#include "common/Frwk.h"\n#include "common/VdCommon/Text.h"\n#include "resource/resource.h"\n')
        self.write("suite/VdDbg/Main.cpp",
                   '#include "suite/VdDbg/Writer.h"\n#include "common/OrlDbMg.h"\n#include "common/Frwk.h"\n')
        self.write("tests/unit/Test.cpp", '#include "suite/VdDbg/Writer.h"\n#include "tests/support/Support.h"\n')
        self.expect_clean("lint_includes")

    def test_up_is_a_hit(self):
        self.write("framework/ui/kestrix/logs/Log.cpp", '\n#include "framework/ui/kestrix/app/Page.h"\n')
        self.expect_hit("framework/ui/kestrix/logs/Log.cpp:2: ", "lint_includes")

    def test_page_sees_its_parts_and_not_the_application(self):
        self.write("framework/ui/kestrix/app/Kestrix.h", "")
        self.write("framework/ui/kestrix/app/page/Part.h", "")
        self.write("framework/ui/kestrix/app/KestrixDlg.cpp",
                   '#include "framework/ui/kestrix/app/page/Part.h"\n#include "framework/ui/kestrix/app/Page.h"\n')
        self.expect_clean("lint_includes")
        self.write("framework/ui/kestrix/app/KestrixDlg.cpp", '#include "framework/ui/kestrix/app/Kestrix.h"\n')
        self.expect_hit("framework/ui/kestrix/app/KestrixDlg.cpp:1: ", "lint_includes")

    def test_foundation_does_not_see_its_neighbour_above(self):
        self.write("common/VdCommon/Text.cpp", '#include "common/Utility.h"\n')
        self.expect_hit("common/VdCommon/Text.cpp:1: ", "lint_includes")

    def test_interface_of_a_library_is_free_and_sees_no_layer_above_the_lowest(self):
        self.write("common/VdCommon/Text.cpp", '#include "common/OrlDbMg.h"\n')
        self.expect_clean("lint_includes")
        self.write("common/OrlDbMg.h", '#include "common/VdCommon/Text.h"\n')
        self.expect_hit("common/OrlDbMg.h:1: ", "lint_includes")

    def test_product_does_not_see_the_suite(self):
        self.write("common/Utility.cpp", '#include "suite/VdDbg/Writer.h"\n')
        self.expect_hit("common/Utility.cpp:1: ", "lint_includes")

    def test_product_does_not_see_the_tests(self):
        self.write("common/Utility.cpp", '#include "tests/support/Support.h"\n')
        self.expect_hit("common/Utility.cpp:1: ", "lint_includes")

    def test_suite_does_not_see_the_product(self):
        self.write("suite/VdDbg/Main.cpp", '#include "common/VdCommon/Text.h"\n')
        self.expect_hit("suite/VdDbg/Main.cpp:1: ", "lint_includes")

    def test_path_from_the_own_folder_is_a_hit(self):
        self.write("common/VdCommon/Text.cpp", '#include "Text.h"\n')
        self.expect_hit("common/VdCommon/Text.cpp:1: ", "lint_includes")

    def test_way_round_through_a_parent_folder_is_a_hit(self):
        self.write("common/Utility.cpp", '#include "common/VdCommon/../VdCommon/Text.h"\n')
        self.expect_hit("common/Utility.cpp:1: ", "lint_includes")

    def test_file_that_does_not_exist_is_a_hit(self):
        self.write("common/Utility.cpp", '#include "common/VdCommon/Gone.h"\n')
        self.expect_hit("common/Utility.cpp:1: ", "lint_includes")

    def test_project_file_in_angle_brackets_is_a_hit(self):
        self.write("common/Utility.cpp", "#include <common/VdCommon/Text.h>\n")
        self.expect_hit("common/Utility.cpp:1: ", "lint_includes")

    def test_comment_is_no_include(self):
        self.write("common/Utility.cpp", '/*\n#include "nowhere.h"\n*/\n// #include "nowhere.h"\n')
        self.expect_clean("lint_includes")


class Globals(Tree):
    SOURCE = "common/VdCommon/Text.cpp"

    def setUp(self):
        super().setUp()
        self.write("tests/lint/globals.txt", "# Name, tab, reason.\n")

    def build(self, text, source=SOURCE):
        self.write(source, text)
        folder, name = os.path.split(source)
        object_file = self.root / "build" / folder / "CMakeFiles/library.dir" / (name + ".obj")
        object_file.parent.mkdir(parents=True, exist_ok=True)
        subprocess.run([COMPILER, "-std=c++20", "-c", self.root / source, "-o", object_file], check=True)

    def expect_variable(self, line):
        self.expect_hit(f"{self.SOURCE}:{line}: ", "lint_globals", self.root / "build")

    def test_constants_and_functions_pass(self):
        self.build('#include <iostream>\n#include <string_view>\nnamespace { constexpr std::wstring_view names[] = '
                   '{L"a", L"b"}; }\nconst int limit = 3;\nconst std::wstring_view& name(int i) { static constexpr int '
                   'shift = 1; std::cout << limit; return names[i - shift]; }\n')
        self.expect_clean("lint_globals", self.root / "build")

    def test_namespace_variable_is_a_hit(self):
        self.build("\nnamespace Text { int count = 3; }\nint f() { return Text::count; }\n")
        self.expect_variable(2)

    def test_variable_without_a_name_outside_is_a_hit(self):
        self.build("namespace { int count; }\nint next() { return ++count; }\n")
        self.expect_variable(1)

    def test_static_member_is_a_hit(self):
        self.build("struct Text\n{\n    static inline int s_nCount = 1;\n};\nint next() { return ++Text::s_nCount; }\n")
        self.expect_variable(3)

    def test_inline_variable_is_a_hit_in_its_header(self):
        self.write("common/VdCommon/Text.h", "#include <string>\n\nstruct Text\n{\n"
                                             "    static inline std::wstring s_strName;\n};\n")
        self.build('#include "Text.h"\nvoid clear(Text& text) { text = Text(); }\n')
        self.expect_hit("common/VdCommon/Text.h:5: ", "lint_globals", self.root / "build")

    def test_static_in_a_function_is_one_hit_without_its_guard(self):
        self.build("struct Lock { Lock(); ~Lock(); };\nLock& lock()\n{\n    static Lock first;\n    return first;\n}\n")
        self.expect_variable(4)

    def test_thread_local_variable_is_a_hit(self):
        self.build("\nthread_local int depth = 0;\nint next() { return ++depth; }\n")
        self.expect_variable(2)

    def test_listed_variables_pass(self):
        self.write("tests/lint/globals.txt", "(anonymous namespace)::count\tThe reason.\nText::name\tThe reason.\n")
        self.build("#include <string>\nnamespace { int count; }\nint next() { return ++count; }\n"
                   "struct Text { static std::wstring name; };\nstd::wstring Text::name;\n")
        self.expect_clean("lint_globals", self.root / "build")

    def test_listed_variable_without_a_reason_is_a_hit(self):
        self.write("tests/lint/globals.txt", "(anonymous namespace)::count\n")
        self.build("namespace { int count; }\nint next() { return ++count; }\n")
        self.expect_hit("tests/lint/globals.txt:1: ", "lint_globals", self.root / "build")

    def test_listed_variable_that_is_gone_is_a_hit(self):
        self.write("tests/lint/globals.txt", "# Head\ncount\tThe reason.\n")
        self.build("int next() { return 1; }\n")
        self.expect_hit("tests/lint/globals.txt:2: ", "lint_globals", self.root / "build")

    def test_folders_outside_the_product_are_free(self):
        self.build("int f() { return 1; }\n")
        self.build("int count;\n", "suite/VdDbg/Main.cpp")
        self.expect_clean("lint_globals", self.root / "build")

    def test_nothing_built_is_an_error(self):
        result = self.run_lint("lint_globals", self.root / "build")
        self.assertEqual(result.returncode, 1)
        self.assertIn("Build first", result.stderr)


class Resources(Tree):
    def setUp(self):
        super().setUp()
        self.write("resource/resource.h", "#define IDD_FORM 101\n#define IDC_LIST 1006\n#define IDS_TITLE 80\n")
        self.write("resource/texts.tsv", "id\trole\ten-US\n80\ttitle\tKestrix\n81\tlater\tThreat\n")
        self.write("resource/unused.txt", "# Not used yet.\ntext 81\n")
        self.write("resource/Kestrix.rc", '\nIDD_FORM DIALOGEX 0, 0, 9, 9\nBEGIN\nCONTROL "", IDC_LIST, "List"\nEND\n')
        self.write("common/Form.cpp", "auto title = LoadText(IDS_TITLE);\n")

    def append(self, path, text):
        with open(self.root / path, "a", encoding="utf-8") as file:
            file.write(text)

    def test_complete_tree_passes(self):
        self.expect_clean("lint_resources")

    def test_named_text_that_does_not_exist_is_a_hit(self):
        self.append("resource/resource.h", "#define IDS_NEW 82\n")
        self.append("common/Form.cpp", "auto other = LoadText(IDS_NEW);\n")
        self.expect_hit("resource/resource.h:4: ", "lint_resources")

    def test_named_text_that_no_code_uses_is_a_hit(self):
        self.write("resource/unused.txt", "")
        self.append("resource/resource.h", "#define IDS_THREAT 81\n")
        self.expect_hit("resource/resource.h:4: ", "lint_resources")

    def test_use_in_a_comment_does_not_count(self):
        self.write("common/Form.cpp", "// IDS_TITLE\n")
        self.expect_hit("resource/resource.h:3: ", "lint_resources")

    def test_control_outside_the_language_file_is_a_hit(self):
        self.append("resource/resource.h", "#define IDC_BUTTON 1007\n")
        self.append("common/Form.cpp", "auto button = GetDlgItem(IDC_BUTTON);\n")
        self.expect_hit("resource/resource.h:4: ", "lint_resources")

    def test_text_without_name_and_row_is_a_hit(self):
        self.append("resource/texts.tsv", "82\tlater\tMore\n")
        self.expect_hit("resource/texts.tsv:4: ", "lint_resources")

    def test_caption_that_stands_in_no_dialog_is_a_hit(self):
        self.append("resource/texts.tsv", "CAPTION_OK\tbutton\t&OK\n")
        self.expect_hit("resource/texts.tsv:4: ", "lint_resources")

    def test_image_without_name_and_row_is_a_hit(self):
        self.append("resource/Kestrix.rc", '178 BITMAP "edge.bmp"\n')
        self.expect_hit("resource/Kestrix.rc:6: ", "lint_resources")

    def test_row_of_a_named_text_is_a_hit(self):
        self.append("resource/unused.txt", "text 80\n")
        self.expect_hit("resource/unused.txt:3: ", "lint_resources")

    def test_row_of_a_number_that_is_gone_is_a_hit(self):
        self.append("resource/unused.txt", "bitmap 81\n")
        self.expect_hit("resource/unused.txt:3: ", "lint_resources")

    def test_row_without_a_kind_is_a_hit(self):
        self.append("resource/unused.txt", "81\n")
        self.expect_hit("resource/unused.txt:3: ", "lint_resources")

    def test_bare_number_is_a_hit(self):
        for call in ("LoadText(80)", "LoadString(module, 80, text, size)", "MAKEINTRESOURCE(101)",
                     "::LoadIconW(module, MAKEINTRESOURCEW(128))"):
            with self.subTest(call):
                self.write("common/Bare.cpp", f"\nauto value = {call};\n")
                self.expect_hit("common/Bare.cpp:2: ", "lint_resources")


class Texts(Tree):
    def test_literal_for_the_user_is_a_hit(self):
        for call in ('AfxMessageBox(L"No log file.")', '::MessageBoxW(window, text(1).c_str(), L"Kestrix", 0)',
                     'SetWindowText(\n    L"Close")'):
            with self.subTest(call):
                self.write("common/Form.cpp", f"\n{call};\n")
                self.expect_hit("common/Form.cpp:2: ", "lint_texts")

    def test_loaded_empty_and_commented_texts_pass(self):
        self.write("common/Form.cpp", 'SetWindowText(L"");\nAfxMessageBox(LoadText(IDS_TEXT));\n'
                                      'DrawText(Format(L"%d%%\\n", 3));\n// AfxMessageBox(L"No")\nTrace(L"No");\n')
        self.expect_clean("lint_texts")

    def test_a_loaded_text_as_a_format_is_a_hit(self):
        for call in ("Format(out, LoadText(IDS_TOTAL).c_str(), 3)", "String::FormatV(out, size, LoadText(\n  IDS_TOTAL))",
                     "std::wcsftime(out, 9, LoadText(id).c_str(), &time)", "swprintf(out, LoadText(IDS_TOTAL).c_str())"):
            with self.subTest(call):
                self.write("common/Form.cpp", f"\n{call};\n")
                self.expect_hit("common/Form.cpp:2: ", "lint_texts")

    def test_a_text_with_places_has_a_format(self):
        self.write("resource/resource.h", "#define IDS_TOTAL 5\n#define IDS_DATE 6\n")
        self.write("resource/texts.tsv", "id\trole\tformat\ten-US\n5\tr\t%u\t%u\n6\tr\t\t%Y\n")
        self.write("common/Form.cpp", "\nFormatText(LoadText(IDS_TOTAL), {3});\n")
        self.expect_clean("lint_texts")
        self.write("common/Form.cpp", "\nFormatDate(LoadText(IDS_DATE), now);\n")
        self.expect_hit("common/Form.cpp:2: ", "lint_texts")

    def test_tests_are_free(self):
        self.write("tests/ui/Test.cpp", 'SetWindowText(L"Close");\n')
        self.expect_clean("lint_texts")


class Length(Tree):
    def test_longest_file_passes(self):
        self.write("common/Long.cpp", "\n" * 400)
        self.write("resource/texts.tsv", "\n" * 4000)
        self.write("build/release/Made.cpp", "\n" * 4000)
        self.expect_clean("lint_length")

    def test_longer_file_is_a_hit(self):
        self.write("common/Long.cpp", "\n" * 401)
        self.expect_hit("common/Long.cpp:401: ", "lint_length")

    def test_longer_command_is_a_hit(self):
        self.write("package", "\n" * 401)
        self.expect_hit("package:401: ", "lint_length")

    def test_longer_tool_is_a_hit(self):
        self.write("tools/update-all", "\n" * 401)
        self.expect_hit("tools/update-all:401: ", "lint_length")


class Format(Tree):
    def setUp(self):
        super().setUp()
        self.write(".clang-format", "BasedOnStyle: LLVM\nIndentWidth: 4\n")

    def test_formatted_file_passes(self):
        self.write("common/Text.h", "int f();\n")
        self.expect_clean("lint_format")

    def test_other_blanks_are_a_hit(self):
        self.write("common/Text.h", "int f();\nint  g();\n")
        self.expect_hit("common/Text.h:2: ", "lint_format")

    def test_style_that_cannot_be_read_is_an_error(self):
        self.write(".clang-format", "NoSuchKey: 1\n")
        self.write("common/Text.h", "int f();\n")
        result = self.run_lint("lint_format")
        self.assertEqual(result.returncode, 1)
        self.assertIn("NoSuchKey", result.stderr)


class WordingOfFiles(Tree):
    def test_finished_files_pass(self):
        self.write("common/Text.h", "// A text.\nint f();\n")
        self.write("resource/texts.tsv", "129\tends in a blank\tText: \n")
        self.expect_clean("lint_wording_of_files")

    def test_marks_are_hits(self):
        for text in ("// TO" "DO: later", "<<<<<<< ours", 'auto path = "/ho' 'me/me/x";',
                     'auto path = "/ro' 'ot/x";', "int f(); ", "// @author me",
                     "// ----------------"):
            with self.subTest(text):
                self.write("common/Text.h", f"int g();\n{text}\n")
                self.expect_hit("common/Text.h:2: ", "lint_wording_of_files")

    def test_last_line_without_end_is_a_hit(self):
        self.write("common/Text.h", "int f();\nint g();")
        self.expect_hit("common/Text.h:2: ", "lint_wording_of_files")

    def test_other_encoding_is_a_hit(self):
        (self.root / "Text.h").write_bytes(b"// \xff\xfe\n")
        self.expect_hit("Text.h:1: ", "lint_wording_of_files")


if __name__ == "__main__":
    unittest.main()
