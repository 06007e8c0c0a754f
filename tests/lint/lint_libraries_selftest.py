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
    DELIVERED = ("bin/Kestrix.exe", "bin/OrlDbMg.dll", "bin/VdDbg64.dll", "bin/VdFrwkPs.dll", "bin/VdFrwkSvc.exe",
                 *(f"bin/resource/{language}/Kestrix.exe.mui" for language in ("de-DE", "en-US", "ja-JP", "zh-CN")),
                 "suite/SampleLogs.exe")

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
        (self.root / "build/suite/SampleLogs.exe").unlink()
        self.expect_program("suite/SampleLogs.exe:1: it is not in")


if __name__ == "__main__":
    unittest.main()
