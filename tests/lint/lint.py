"""What the lint tests share: the files of the tree, the findings, the way to report them.

A lint test is a program with the root of a tree as its argument. It prints one row "file:line: message" a finding, each
message with its remedy, and exits with 1 when there was one.
"""

import os
import re
import sys

PRODUCT = ("platform/", "common/", "framework/")
CODE = (".h", ".cpp", ".c")

_NO_SOURCES = {"build", ".git"}


def files(root, endings=None, below=("",)):
    """Paths, relative to root, of all files with one of the endings whose path starts with one of the prefixes."""
    found = []
    for folder, subfolders, names in os.walk(root):
        if folder == root:
            subfolders[:] = [name for name in subfolders if name not in _NO_SOURCES]
        for name in names:
            path = os.path.relpath(os.path.join(folder, name), root)
            if path.startswith(tuple(below)) and (endings is None or name.endswith(tuple(endings))):
                found.append(path)
    return sorted(found)


def read(root, path):
    with open(os.path.join(root, path), encoding="utf-8-sig", newline="") as file:
        return file.read()


def line_of(text, position):
    return text.count("\n", 0, position) + 1


_COMMENT_OR_LITERAL = re.compile(
    r"""//[^\n]*|/\*.*?\*/|R"(?P<mark>[^()\\\s]*)\(.*?\)(?P=mark)"|"(?:\\.|[^"\\\n])*"|(?<!\w)'(?:\\.|[^'\\\n])+'""",
    re.DOTALL)


def without_comments(text):
    """The text of a C++ file with its comments as blanks; literals and line numbers stay."""
    def blank(match):
        part = match.group()
        return re.sub(r"[^\n]", " ", part) if part.startswith("/") else part
    return _COMMENT_OR_LITERAL.sub(blank, text)


class Findings:
    def __init__(self):
        self._rows = []

    def add(self, path, line, message):
        self._rows.append((path, line, message))

    def finish(self):
        """Prints the findings in the order of the files and ends the program."""
        for path, line, message in sorted(set(self._rows)):
            print(f"{path}:{line}: {message}")
        sys.exit(1 if self._rows else 0)


def root_argument():
    """The first argument: the root of the tree to look at."""
    if len(sys.argv) < 2 or not os.path.isdir(sys.argv[1]):
        sys.exit(f"usage: {os.path.basename(sys.argv[0])} ROOT: the root of the checkout is missing or no folder.")
    return os.path.abspath(sys.argv[1])
