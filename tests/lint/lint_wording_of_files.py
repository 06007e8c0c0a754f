"""Marks that do not belong into a finished file: put-off work, merge conflicts, paths of one machine, stray blanks."""

import re

import lint

BINARY = (".png", ".bmp", ".ico", ".cur", ".chm", ".gif", ".jpg", ".ttf", ".utf16")

# What the file may not hold, and the remedy.
MARKS = (
    (r"\b(?:TO" r"DO|FIX" r"ME|X" r"XX|HA" r"CK)\b", "work put off; do it, or say as a fact what does not work and why"),
    (r"^(?:<{7}|={7}|>{7})(?: |$)", "a merge conflict; resolve it"),
    (r"/home/[a-z]|/ro" r"ot/", "a path of one machine; write it from the root of the repository"),
    (r"[ \t]+\r?$", "blanks at the end of the line; remove them"),
    (r"^(?: *\* | *// ?|# ?)(?:@author|@date|@version|Created by|Author:)", "history belongs into the commits; remove it"),
    (r"^[ \t]*(?://|#|/\*) ?[-=*#/]{10,}", "a banner; a sentence or nothing does"),
)

# Tables keep the blanks and the empty columns at the end of their lines.
TABLES = (".tsv", ".golden")


def check(root, path, findings):
    try:
        text = lint.read(root, path)
    except UnicodeDecodeError:
        findings.add(path, 1, "not UTF-8; save it as UTF-8, or name its ending among the binary files of this test")
        return
    for pattern, remedy in MARKS:
        if "blanks" in remedy and path.endswith(TABLES):
            continue
        for match in re.finditer(pattern, text, re.MULTILINE):
            findings.add(path, lint.line_of(text, match.start()), remedy)
    if text and not text.endswith("\n"):
        findings.add(path, lint.line_of(text, len(text)), "the last line does not end; end it with a line feed")


def main():
    root = lint.root_argument()
    findings = lint.Findings()
    for path in lint.files(root):
        if not path.endswith(BINARY):
            check(root, path, findings)
    findings.finish()


if __name__ == "__main__":
    main()
