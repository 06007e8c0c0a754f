"""What a user reads comes from the language file: no text literal goes straight to a window or a message box, and a
text with places for values is put together by the two functions that bear whatever a translator wrote, with the format
that the table of texts promises."""

import re

import lint
import lint_resources

CALL = re.compile(r"\b(AfxMessageBox|MessageBox(?:Ex)?W?|SetWindowTextW?|SetDlgItemTextW?|SetTitle|SetPaneText|"
                  r"InsertColumn|AddString|InsertString|AddTool|UpdateTipText|DrawTextW?|TextOutW?)\s*\(")
LITERAL = re.compile(r'"((?:\\.|[^"\\\n])*)"')
NO_WORDS = re.compile(r"\\.|%[-+ #0-9.*]*(?:I64|ll|l|h)?[a-zA-Z%]")

FORMATTING = re.compile(r"\b(\w*(?:Format|printf|ftime)\w*)\s*\(")
LOADED = re.compile(r"\bLoadText\s*\(\s*(IDS_\w+)?")
CHECKED = ("FormatText", "FormatDate")


def arguments(text, start):
    """The text between the parenthesis that opens before start and the one that closes it."""
    depth, position = 1, start
    while depth and position < len(text):
        literal = LITERAL.match(text, position)
        if literal:
            position = literal.end()
            continue
        depth += {"(": 1, ")": -1}.get(text[position], 0)
        position += 1
    return text[start:position]


def without_format(root):
    """The names of texts that the table promises no format for."""
    try:
        lines = [line.split("\t") for line in lint.read(root, lint_resources.TEXTS).splitlines()]
        formats = {cells[0]: cells[lines[0].index("format")] for cells in lines[1:]}
    except FileNotFoundError:
        return set()
    return {entry.name for entry in lint_resources.names(root) if not formats.get(entry.number)}


def check_formats(root, findings):
    plain = without_format(root)
    for path in lint.files(root, lint.CODE, lint.PRODUCT):
        text = lint.without_comments(lint.read(root, path))
        for call in FORMATTING.finditer(text):
            for loaded in LOADED.finditer(arguments(text, call.end())):
                if call[1] not in CHECKED:
                    findings.add(path, lint.line_of(text, call.start()),
                                 f"{call[1]} gets a text of the language file; FormatText and FormatDate bear any text")
                elif loaded[1] in plain:
                    findings.add(path, lint.line_of(text, call.start()),
                                 f"{loaded[1]} has places for values; write them into the column `format` of its text")


def main():
    root = lint.root_argument()
    findings = lint.Findings()
    check_formats(root, findings)
    for path in lint.files(root, lint.CODE, lint.PRODUCT):
        text = lint.without_comments(lint.read(root, path))
        for call in CALL.finditer(text):
            for literal in LITERAL.finditer(arguments(text, call.end())):
                if re.search(r"\w", NO_WORDS.sub("", literal[1])):
                    findings.add(path, lint.line_of(text, call.start()),
                                 f"{call[1]} gets the text {literal[0]}; put it into resource/texts.tsv, name its "
                                 "number in resource/resource.h and load it")
    findings.finish()


if __name__ == "__main__":
    main()
