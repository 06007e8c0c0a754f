"""Makes the notices of what the package has from others.

usage: notices.py SQLITE3.C OUTPUT

The texts are those that came with the parts themselves: with the compiler's packages of this machine, and on top of the
source of SQLite.
"""

import pathlib
import re
import sys

HEAD = """This package has parts of others, linked into its programs and libraries. What their authors ask for stands
below.

"""

# Title, where it is used, and the file with its terms.
PARTS = (
    ("GCC's run-time libraries (libgcc, libstdc++)", "in all programs and libraries",
     "/usr/share/doc/gcc-mingw-w64-base/copyright"),
    ("MinGW-w64's run-time library and its threads (winpthreads)", "in all programs and libraries",
     "/usr/share/doc/mingw-w64-common/copyright"),
    ("GNU General Public License, version 3, to which GCC's exception refers", "not the terms of this package",
     "/usr/share/common-licenses/GPL-3"),
)
RULE = "=" * 100


def section(title, place, text):
    return f"{RULE}\n{title}\n{place}\n{RULE}\n\n{text.strip()}\n\n"


def of_sqlite(source):
    """The version and the first notice of the amalgamation."""
    text = source.read_text(encoding="utf-8", errors="replace")[:200_000]
    version = re.search(r"\*\* version (\d+\.\d+\.\d+)", text)
    blessing = re.search(r"\*\* (The author disclaims copyright.*?)\n\*\*\*", text, re.DOTALL)
    if version is None or blessing is None:
        sys.exit(f"{source} does not begin as the source of SQLite does; look for its notice and change notices.py.")
    lines = [line.removeprefix("**").strip() for line in blessing[1].splitlines()]
    return section(f"SQLite {version[1]}", "in OrlDbMg.dll, VdFrwkSvc.exe and ImportLogs.exe", "\n".join(lines))


def main(sqlite, output):
    text = HEAD + of_sqlite(pathlib.Path(sqlite))
    for title, place, path in PARTS:
        text += section(title, place, pathlib.Path(path).read_text(encoding="utf-8", errors="replace"))
    pathlib.Path(output).write_text(text, encoding="utf-8", newline="\r\n")


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    main(*sys.argv[1:])
