"""Every built program and library can lie anywhere in memory and executes no data; each imports from libraries of the
system alone that stand here with their reason.

usage: lint_programs.py ROOT BUILD

The headers and import tables of the built files tell. Libraries that are loaded at the first call of one of their
functions stand in no import table; those come from the system's folder (platform/dialog/SystemLibrary.h).
"""

import os
import re
import subprocess
import sys

import lint

OBJDUMP = "x86_64-w64-mingw32-objdump"
PLACE = "tests/lint/lint_programs.py"
ENDINGS = (".exe", ".dll", ".mui")

FLAGS = {0x20: "high entropy addresses", 0x40: "a dynamic base", 0x100: "no execution of data"}

EVERYWHERE = {
    "kernel32.dll": "files, processes, memory",
    "msvcrt.dll": "the C library of the compiler's own runtime",
}
SUITE = {
    "advapi32.dll": "the registry",
    "ole32.dll": "COM",
    "oleaut32.dll": "the arrays and values of COM calls",
    "rpcrt4.dll": "COM calls between processes",
    "wininet.dll": "whether the machine is online",
}
VIEWER = {
    "advapi32.dll": "the registry, access lists of named objects",
    "comctl32.dll": "lists, tabs, tool tips",
    "gdi32.dll": "drawing",
    "ole32.dll": "COM: the service",
    "oleaut32.dll": "the arrays, values and dates of COM calls",
    "user32.dll": "windows",
}
TESTS = {
    **SUITE,
    **VIEWER,
    "oleacc.dll": "the tests ask what a screen reader sees",
    "psapi.dll": "the benchmarks measure memory",
    "shell32.dll": "the tests ask the shell for folders and arguments",
}

# What is delivered. Whatever else lies in the build folder is a test's.
DELIVERED = {
    "bin/ImportLogs.exe": SUITE,
    "bin/Kestrix.exe": VIEWER,
    "bin/OrlDbMg.dll": SUITE,
    "bin/VdDbg64.dll": SUITE,
    "bin/VdFrwkPs.dll": SUITE,
    "bin/VdFrwkSvc.exe": SUITE,
    "bin/resource/de-DE/Kestrix.exe.mui": {},
    "bin/resource/en-US/Kestrix.exe.mui": {},
    "bin/resource/ja-JP/Kestrix.exe.mui": {},
    "bin/resource/zh-CN/Kestrix.exe.mui": {},
}


def built(build):
    """Paths, relative to build, of all programs and libraries."""
    for folder, subfolders, names in os.walk(build):
        subfolders[:] = [name for name in subfolders if name != "CMakeFiles"]
        for name in names:
            if name.endswith(ENDINGS):
                yield os.path.relpath(os.path.join(folder, name), build).replace(os.sep, "/")


def check(build, path, findings):
    text = subprocess.run([OBJDUMP, "-p", os.path.join(build, path)], capture_output=True, text=True, check=True).stdout
    flags = int(re.search(r"^DllCharacteristics\s+([0-9a-f]+)", text, re.MULTILINE)[1], 16)
    for flag, meaning in FLAGS.items():
        if not flags & flag:
            findings.add(path, 1, f"its header says nothing of {meaning}; link it with kestrix_options")
    has_code = int(re.search(r"^AddressOfEntryPoint\s+([0-9a-f]+)", text, re.MULTILINE)[1], 16) != 0
    relocations = int(re.search(r"^Entry 5 [0-9a-f]+ ([0-9a-f]+)", text, re.MULTILINE)[1], 16)
    if has_code and relocations == 0:
        findings.add(path, 1, "it has no relocations, so that its base stays where it is; link it without stripping them")
    allowed = {**EVERYWHERE, **DELIVERED.get(path, TESTS)}
    for library in re.findall(r"DLL Name: (\S+)", text):
        if library.lower() not in allowed:
            findings.add(path, 1, f"it imports from {library}; do without, or list that in {PLACE} with its reason")


def main():
    lint.root_argument()
    if len(sys.argv) < 3:
        sys.exit("usage: lint_programs.py ROOT BUILD: the build folder is missing.")
    build = sys.argv[2]
    findings = lint.Findings()
    found = sorted(built(build))
    for path in DELIVERED:
        if path not in found:
            findings.add(path, 1, f"it is not in {build}; build first, ./test does")
    for path in found:
        check(build, path, findings)
    findings.finish()


if __name__ == "__main__":
    main()
