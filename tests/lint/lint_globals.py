"""No mutable variable with the lifetime of the program, beyond those that globals.txt lists with their reasons.

usage: lint_globals.py ROOT BUILD

The symbols of the built objects below BUILD tell: whatever lies in writable memory is one, be it at namespace scope,
a static member or static in a function. Constants that are computed at start count too, since they are mutable until
then; constexpr makes them disappear.
"""

import os
import re
import subprocess
import sys

import lint

NM = "x86_64-w64-mingw32-nm"
LIST = "tests/lint/globals.txt"

# Writable, or common to several objects.
WRITABLE = set("bBdDC")

# Made by the compiler or the standard library: sections, guards of other variables, tables.
NOT_OURS = re.compile(r"^(\.|guard variable for |reference temporary #\d+ for |std::|__gnu_cxx::|_*tls_|__)")

THREAD_LOCAL = "__emutls_v."
ABI_TAG = "[abi:cxx11]"


def objects(build):
    """Pairs of a product source and its object."""
    for folder, _, names in os.walk(build):
        place = os.path.relpath(folder, build).replace(os.sep, "/")
        match = re.match(r"(.*?)/CMakeFiles/[^/]+\.dir(.*)$", place)
        if not match or not match[1].startswith(tuple(part.rstrip("/") for part in lint.PRODUCT)):
            continue
        for name in names:
            if name.endswith(".cpp.obj"):
                yield match[1] + match[2] + "/" + name[:-len(".obj")], os.path.join(folder, name)


def variables(path):
    """The demangled names of the writable variables of an object."""
    output = subprocess.run([NM, "-C", "--defined-only", path], capture_output=True, text=True, check=True).stdout
    for row in output.splitlines():
        match = re.match(r"[0-9a-f]* *(\w) (.*)$", row.strip())
        if match and match[1] in WRITABLE:
            name = match[2].removeprefix(THREAD_LOCAL).replace(ABI_TAG, "")
            if not NOT_OURS.match(name):
                yield name


def listed(root):
    """The line of each name in the list."""
    rows = {}
    for number, row in enumerate(lint.read(root, LIST).splitlines(), 1):
        if row and not row.startswith("#"):
            name, _, reason = row.partition("\t")
            rows[name] = (number, reason.strip())
    return rows


def place(root, source, name):
    """The file and line of a variable: in its source, or in the header that declares it inline."""
    word = re.compile(rf"\b{re.escape(name.split('::')[-1])}\b")
    for path in [source, *lint.files(root, (".h",), lint.PRODUCT)]:
        match = word.search(text := lint.read(root, path))
        if match:
            return path, lint.line_of(text, match.start())
    return source, 1


def main():
    root = lint.root_argument()
    if len(sys.argv) < 3:
        sys.exit("usage: lint_globals.py ROOT BUILD: the build folder is missing.")
    findings = lint.Findings()
    allowed = listed(root)
    built, seen = set(), set()
    for source, path in sorted(objects(sys.argv[2])):
        if not os.path.isfile(os.path.join(root, source)):
            continue
        built.add(source)
        for name in variables(path):
            if name not in allowed and name not in seen:
                findings.add(*place(root, source, name),
                             f"{name} is mutable and lives as long as the program; make it constexpr, a member or an "
                             f"argument, or list it in {LIST} with its reason")
            seen.add(name)
    if not built:
        sys.exit(f"There is no object of the product below {sys.argv[2]}. Build first: ./test does.")
    complete = built >= set(lint.files(root, (".cpp",), lint.PRODUCT))
    for name, (number, reason) in allowed.items():
        if not reason:
            findings.add(LIST, number, f"{name} has no reason; write one behind a tab")
        if complete and name not in seen:
            findings.add(LIST, number, f"{name} is no variable of the product any longer; remove the row")
    findings.finish()


if __name__ == "__main__":
    main()
