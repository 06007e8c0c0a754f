"""The numbers of the help: those that the viewer asks for are those that the help has topics for, and the two numbers
of a log lead to one topic."""

import re

import lint

VIEWER = "framework/ui/kestrix/logs/LogKinds.cpp"
REPORT = "framework/ui/kestrix/app/Help.h"
KINDS = "suite/kinds.tsv"
TOPICS = "suite/help/topics.tsv"

ROW = re.compile(r"\.help = (\d+)(?:,\s*\.helpBesideReport = (\d+))?")
REPORT_NUMBER = re.compile(r"\bHelpNumberOfReport\s*=\s*(\d+)")


def asked(root, findings):
    """The places at which the viewer asks for topics, each with its numbers; 0 stands for none."""
    places = []
    for path, pattern in ((VIEWER, ROW), (REPORT, REPORT_NUMBER)):
        text = lint.without_comments(lint.read(root, path))
        found = [(path, lint.line_of(text, match.start()), set(match.groups()) - {None})
                 for match in pattern.finditer(text)]
        if not found:
            findings.add(path, 1, "no help number is found here; write them as they were, or change lint_help.py")
        places += found
    return places


def answered(root):
    """The table and the line of each number in the tables of topics."""
    places = {}
    for table in (KINDS, TOPICS):
        columns, *rows = (row.split("\t") for row in lint.read(root, table).splitlines())
        for line, row in enumerate(rows, 2):
            places |= {number: (table, line) for number in row[columns.index("contexts")].split()}
    return places


def main():
    root = lint.root_argument()
    findings = lint.Findings()
    viewer, topics = asked(root, findings), answered(root)
    for path, line, numbers in viewer:
        for number in numbers - topics.keys():
            findings.add(path, line, f"the help has no page for {number}; give a row of {KINDS} or {TOPICS} this number")
        if len({topics[number] for number in numbers & topics.keys()}) > 1:
            findings.add(path, line, f"the two numbers lead to two topics; give them to one in {KINDS}")
    for number in topics.keys() - set().union(*(numbers for _, _, numbers in viewer)):
        findings.add(*topics[number], f"the viewer never asks for {number}; remove it, or add it to {VIEWER}")
    findings.finish()


if __name__ == "__main__":
    main()
