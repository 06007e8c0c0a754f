"""Libraries that the product loads at run time come from a folder that is named, never from the system's search, in
which the program's and the current folder come first."""

import re

import lint

LOAD = re.compile(r"\b(?:LoadLibrary|LoadLibraryEx|LoadPackagedLibrary)[AW]?\b")

# The functions that may call the system's, with where their libraries lie.
LOADERS = {
    "platform/dialog/SystemLibrary.cpp": "the system's folder",
    "common/VdCommon/VdComn_Library.cpp": "the folder that the derived class names",
    "common/VdCommon/VdComn_MuiLibrary.cpp": "the program's folder; opened as data, so that nothing of it runs",
    "common/VdCommon/VdComn_Wow64FsRedir.cpp": "the system's folder for 32-bit programs",
}


def main():
    root = lint.root_argument()
    findings = lint.Findings()
    for path in lint.files(root, lint.CODE, lint.PRODUCT):
        if path in LOADERS:
            continue
        text = lint.without_comments(lint.read(root, path))
        for match in LOAD.finditer(text):
            findings.add(path, lint.line_of(text, match.start()),
                         f"{match.group()} looks for the library in the current folder too; use LoadSystemLibrary")
    findings.finish()


if __name__ == "__main__":
    main()
