#!/usr/bin/env python3
"""Writes unused.txt: what the language file holds and no code uses yet, that is to say what no header here names.

usage: unused.py RESOURCE_FOLDER

One line each: the kind (text, dialog, bitmap, icon, cursor), a blank, and the number; in that order, by number.
"""

import pathlib
import re
import sys

KINDS = ["text", "dialog", "bitmap", "icon", "cursor"]

# How the headers name each kind. A cursor shares its prefix with the controls, which are left out.
NAMES = {
    "text": r"IDS_\w+",
    "dialog": r"IDD_\w+",
    "bitmap": r"IDB_\w+",
    "icon": r"IDI_\w+",
    "cursor": r"IDC_\w+_CURSOR",
}

# How Kestrix.rc begins the definition of each kind, by name or by number.
DEFINITION = re.compile(r"^(\w+)\s+(DIALOGEX|BITMAP|ICON|CURSOR)\s", re.MULTILINE)


def macros(folder):
    lines = "\n".join(header.read_text(encoding="utf-8") for header in folder.glob("*.h"))
    return {name: int(number) for name, number in re.findall(r"^#define (\w+) (\d+)$", lines, re.MULTILINE)}


def held(folder, names):
    """What the language file holds, as pairs of kind and number."""
    texts = (folder / "texts.tsv").read_text(encoding="utf-8").splitlines()[1:]
    ids = [line.split("\t", 1)[0] for line in texts]
    found = {("text", int(number)) for number in ids if number.isdigit()}
    for name, kind in DEFINITION.findall((folder / "Kestrix.rc").read_text(encoding="utf-8")):
        found.add((kind.removesuffix("EX").lower(), names[name] if name in names else int(name)))
    return found


def main(folder):
    names = macros(folder)
    used = {(kind, number) for name, number in names.items() for kind in KINDS if re.fullmatch(NAMES[kind], name)}
    unused = sorted(held(folder, names) - used, key=lambda item: (KINDS.index(item[0]), item[1]))
    text = "".join(f"{kind} {number}\n" for kind, number in unused)
    (folder / "unused.txt").write_text(text, encoding="utf-8")


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    main(pathlib.Path(sys.argv[1]))
