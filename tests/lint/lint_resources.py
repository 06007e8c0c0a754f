"""The numbers of the language file: each named one is there and is used, each other one stands in resource/unused.txt.
Each caption of the table of texts stands in a dialog."""

import os
import re

import lint

NAMES = ("resource/resource.h", "resource/DialogTexts.h", "resource/UpdateTexts.h", "resource/WebAndTaskTexts.h")
TEXTS = "resource/texts.tsv"
UNUSED = "resource/unused.txt"

DEFINE = re.compile(r"^#define[ \t]+(ID[A-Z]_\w+)[ \t]+(\d+)\b", re.MULTILINE)
STATEMENT = re.compile(r"^(\d+)[ \t]+(BITMAP|ICON|CURSOR|DIALOG(?:EX)?)\b", re.MULTILINE)
UNUSED_ROW = re.compile(r"(text|bitmap|icon|cursor|dialog)[ \t]+(\d+)\b")
BARE_NUMBER = re.compile(r"\b(LoadText|LoadString(?:Ex)?W?|LoadBitmapW?|LoadIconW?|LoadCursorW?|GetDlgItem|"
                         r"MAKEINTRESOURCE[AW]?)\s*\((?:[^(),;]*,)?\s*\d+\s*[,)]")


class Name:
    """A line of one of the headers that name numbers."""

    def __init__(self, name, number, path, line):
        self.name, self.number, self.path, self.line = name, number, path, line
        self.is_text = name.startswith("IDS_")


def names(root):
    for path in NAMES:
        if os.path.isfile(os.path.join(root, path)):
            text = lint.without_comments(lint.read(root, path))
            for match in DEFINE.finditer(text):
                yield Name(match[1], match[2], path, lint.line_of(text, match.start()))


def text_ids(root):
    """The line of each number and of each caption in the table of texts."""
    rows = lint.read(root, TEXTS).splitlines()
    return {row.split("\t")[0]: line for line, row in enumerate(rows, 1) if line > 1 and row}


def text_numbers(root):
    return {number: line for number, line in text_ids(root).items() if number.isdigit()}


def words(root, endings, below):
    found = set()
    for path in lint.files(root, endings, below):
        if path not in NAMES:
            found.update(re.findall(r"\bID[A-Z]_\w+", lint.without_comments(lint.read(root, path))))
    return found


def check_names(root, findings):
    texts = text_numbers(root)
    scripts = words(root, (".rc",), ("resource/",))
    code = words(root, lint.CODE, lint.PRODUCT)
    for entry in names(root):
        if entry.is_text and entry.number not in texts:
            findings.add(entry.path, entry.line, f"{entry.name}: there is no text {entry.number}; add its row to {TEXTS}")
        if not entry.is_text and entry.name not in scripts:
            findings.add(entry.path, entry.line, f"{entry.name} is not in the language file; "
                                            "add it to resource/Kestrix.rc")
        if entry.name not in scripts | code:
            findings.add(entry.path, entry.line, f"{entry.name} is used nowhere; remove it here"
                                            + (f" and write 'text {entry.number}' into {UNUSED}" if entry.is_text else ""))


def unnamed_resources(root):
    """What the language file holds without a name: the place of each pair of kind and number."""
    named = {entry.number for entry in names(root) if entry.is_text}
    places = {("text", number): (TEXTS, line) for number, line in text_numbers(root).items() if number not in named}
    for path in lint.files(root, (".rc",), ("resource/",)):
        text = lint.without_comments(lint.read(root, path))
        for match in STATEMENT.finditer(text):
            kind = match[2].removesuffix("EX").lower()
            places[kind, match[1]] = (path, lint.line_of(text, match.start()))
    return places


def check_unused(root, findings):
    unnamed = unnamed_resources(root)
    listed = set()
    rows = lint.read(root, UNUSED).splitlines() if os.path.isfile(os.path.join(root, UNUSED)) else []
    for line, row in enumerate(rows, 1):
        if not row or row.startswith("#"):
            continue
        match = UNUSED_ROW.match(row)
        if not match:
            findings.add(UNUSED, line, f"'{row}' is no row; write the kind (text, bitmap, icon, cursor or dialog), "
                                       "a blank and the number")
        elif match.groups() not in unnamed:
            findings.add(UNUSED, line, f"{match[1]} {match[2]} has a name or is not in the language file; remove the row")
        else:
            listed.add(match.groups())
    for (kind, number), (path, line) in unnamed.items():
        if (kind, number) not in listed:
            findings.add(path, line, f"{kind} {number} has no name; name it in {NAMES[0]} where code uses it, "
                                     f"or write '{kind} {number}' into {UNUSED}")


def check_code(root, findings):
    for path in lint.files(root, lint.CODE, lint.PRODUCT):
        text = lint.without_comments(lint.read(root, path))
        for match in BARE_NUMBER.finditer(text):
            findings.add(path, lint.line_of(text, match.start()),
                         f"{match[1]} gets a bare number; name it in {NAMES[0]} and pass the name")


def check_captions(root, findings):
    scripts = [lint.without_comments(lint.read(root, path)) for path in lint.files(root, (".rc",), ("resource/",))]
    for name, line in text_ids(root).items():
        if not name.isdigit() and not any(re.search(rf"\b{name}\b", script) for script in scripts):
            findings.add(TEXTS, line, f"{name} stands in no dialog; remove the row, or put it into resource/Kestrix.rc")


def main():
    root = lint.root_argument()
    findings = lint.Findings()
    check_names(root, findings)
    check_captions(root, findings)
    check_unused(root, findings)
    check_code(root, findings)
    findings.finish()


if __name__ == "__main__":
    main()
