"""What a user reads comes from the language file: no text literal goes straight to a window or a message box."""

import re

import lint

CALL = re.compile(r"\b(AfxMessageBox|MessageBox(?:Ex)?W?|SetWindowTextW?|SetDlgItemTextW?|SetTitle|SetPaneText|"
                  r"InsertColumn|AddString|InsertString|AddTool|UpdateTipText|DrawTextW?|TextOutW?)\s*\(")
LITERAL = re.compile(r'"((?:\\.|[^"\\\n])*)"')
NO_WORDS = re.compile(r"\\.|%[-+ #0-9.*]*(?:I64|ll|l|h)?[a-zA-Z%]")


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


def main():
    root = lint.root_argument()
    findings = lint.Findings()
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
