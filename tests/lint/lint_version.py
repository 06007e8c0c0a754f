"""The file VERSION has a version in three numbers, and everything that is delivered and CHANGELOG.md tell that one.

usage: lint_version.py ROOT BUILD
"""

import os
import re
import sys

import lint
import lint_programs

VERSION = "VERSION"
CHANGES = "CHANGELOG.md"
NUMBERS = re.compile(r"(0|[1-9]\d?|1\d\d|2[0-4]\d|25[0-5])\.(0|[1-9]\d?|1\d\d|2[0-4]\d|25[0-5])\.(0|[1-9]\d{0,3})\n")


def in_resource(name, text):
    """The bytes of a text in a version resource: name, its end, at most one more word to an address of four, text."""
    word = re.escape(name.encode("utf-16-le")) + b"(?:\0\0){1,2}"
    return re.compile(word + re.escape((text + "\0").encode("utf-16-le")))


def check_changes(root, version, findings):
    heading = re.search(r"^## (.*)$", lint.read(root, CHANGES), re.MULTILINE)
    if heading is None or heading[1].split()[0] != version:
        findings.add(CHANGES, 1, f"its first heading is not that of {version}; tell there what is new in it")


def check_programs(build, version, findings):
    for path in lint_programs.DELIVERED:
        if not path.endswith((".exe", ".dll")):
            continue
        with open(os.path.join(build, path), "rb") as file:
            contents = file.read()
        for name in ("FileVersion", "ProductVersion"):
            if not in_resource(name, version).search(contents):
                findings.add(path, 1, f"{name} of its resources is not {version}; give its target kestrix_version")


def main():
    root = lint.root_argument()
    if len(sys.argv) < 3:
        sys.exit("usage: lint_version.py ROOT BUILD: the build folder is missing.")
    findings = lint.Findings()
    text = lint.read(root, VERSION)
    if NUMBERS.fullmatch(text):
        check_changes(root, text.strip(), findings)
        check_programs(sys.argv[2], text.strip(), findings)
    else:
        findings.add(VERSION, 1, "write MAJOR.MINOR.PATCH in one line; the installer takes no more than 255.255.9999")
    findings.finish()


if __name__ == "__main__":
    main()
