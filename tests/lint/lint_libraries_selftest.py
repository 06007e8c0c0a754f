"""As lint_selftest.py, for the tests that look at how programs are linked and load libraries."""

import os
import subprocess
import unittest

from lint_selftest import COMPILER, Tree


class Loads(Tree):
    def test_the_loader_and_comments_pass(self):
        self.write("platform/dialog/SystemLibrary.cpp", "HMODULE a = ::LoadLibraryExW(path, nullptr, 8);\n")
        self.write("framework/ui/kestrix/app/Help.cpp", 'auto a = LoadSystemLibrary(L"a.dll"); // not LoadLibraryW\n')
        self.expect_clean("lint_loads")

    def test_load_by_name_is_a_hit(self):
        self.write("framework/ui/kestrix/app/Help.cpp", '\nHMODULE a = ::LoadLibraryW(L"a.dll");\n')
        self.expect_hit("framework/ui/kestrix/app/Help.cpp:2: LoadLibraryW looks", "lint_loads")


class Programs(Tree):
    DELIVERED = ("bin/ImportLogs.exe", "bin/Kestrix.exe", "bin/OrlDbMg.dll", "bin/VdDbg64.dll", "bin/VdFrwkPs.dll",
                 "bin/VdFrwkSvc.exe",
                 *(f"bin/resource/{language}/Kestrix.exe.mui" for language in ("de-DE", "en-US", "ja-JP", "zh-CN")))

    def setUp(self):
        super().setUp()
        self.write("source.c", "int main(void) { return 0; }\n")
        self.link("plain.exe")
        for path in self.DELIVERED:
            (self.root / "build" / path).parent.mkdir(parents=True, exist_ok=True)
            os.link(self.root / "build/plain.exe", self.root / "build" / path)

    def link(self, path, *options):
        (self.root / "build").mkdir(exist_ok=True)
        (self.root / "build" / path).unlink(missing_ok=True)
        subprocess.run([COMPILER, "-x", "c", self.root / "source.c", "-x", "none", "-static", *options, "-o",
                        self.root / "build" / path], check=True)

    def expect_program(self, start):
        self.expect_hit(start, "lint_programs", self.root / "build")

    def test_flags_and_known_libraries_pass(self):
        self.expect_clean("lint_programs", self.root / "build")

    def test_missing_flags_are_a_hit_each(self):
        for option, start in (("--disable-high-entropy-va", "high entropy"), ("--disable-nxcompat", "no execution")):
            self.link("bin/Kestrix.exe", "-Wl," + option)
            self.expect_program(f"bin/Kestrix.exe:1: its header says nothing of {start}")

    def test_missing_relocations_are_a_hit(self):
        self.link("test.exe")
        subprocess.run(["x86_64-w64-mingw32-objcopy", "-R", ".reloc", self.root / "build/test.exe"], check=True)
        self.expect_program("test.exe:1: it has no relocations")

    def test_library_of_a_test_in_the_viewer_is_a_hit(self):
        self.write("source.c", "#include <windows.h>\n#include <shellapi.h>\n"
                               "int main(void) { return DragQueryFileW(0, 0, 0, 0); }\n")
        self.link("bin/Kestrix.exe", "-lshell32")
        self.expect_program("bin/Kestrix.exe:1: it imports from SHELL32.dll")

    def test_program_that_was_not_built_is_a_hit(self):
        (self.root / "build/bin/ImportLogs.exe").unlink()
        self.expect_program("bin/ImportLogs.exe:1: it is not in")


class Version(Tree):
    NAMES = [path for path in Programs.DELIVERED if path.endswith((".exe", ".dll"))]

    def setUp(self):
        super().setUp()
        self.write("VERSION", "1.20.3\n")
        self.write("CHANGELOG.md", "# Changes\n\n## 1.20.3\n\n## 1.20.2\n")
        for path in self.NAMES:
            self.tell(path, "1.20.3")

    def tell(self, path, version, name="ProductVersion"):
        file = self.root / "build" / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_bytes(b"".join((text + "\0").encode("utf-16-le") for text in ("FileVersion", version, name, version)))

    def test_one_version_everywhere_passes(self):
        self.expect_clean("lint_version", self.root / "build")

    def test_other_version_of_a_program_is_a_hit_for_each_name(self):
        self.tell("bin/VdFrwkSvc.exe", "1.20.30")
        rows = self.run_lint("lint_version", self.root / "build").stdout.splitlines()
        self.assertEqual([row.split(" of ")[0] for row in rows],
                         ["bin/VdFrwkSvc.exe:1: FileVersion", "bin/VdFrwkSvc.exe:1: ProductVersion"])

    def test_missing_version_of_the_product_is_a_hit(self):
        self.tell("bin/Kestrix.exe", "1.20.3", "ProductName")
        self.expect_hit("bin/Kestrix.exe:1: ProductVersion", "lint_version", self.root / "build")

    def test_change_that_is_not_told_is_a_hit(self):
        self.write("CHANGELOG.md", "# Changes\n\n## 1.20.2\n")
        self.expect_hit("CHANGELOG.md:1: ", "lint_version", self.root / "build")

    def test_version_that_is_none_is_a_hit(self):
        for text in ("1.0\n", "1.0.0", "1.0.0-rc\n", "01.0.0\n", "256.0.0\n", "1.0.0.0\n", ""):
            self.write("VERSION", text)
            self.expect_hit("VERSION:1: ", "lint_version", self.root / "build")


if __name__ == "__main__":
    unittest.main()
