"""The kinds of log: whatever a kind of the viewer's table must have beside its row is there.

Of each row of the table: a class in the factory, a row of the suite with the same numbers, samples, a help topic in
each language, a golden day of a file and one of the database, and a picture. docs/adding-a-log.md tells how each is made.
"""

import os
import re

import lint

VIEWER = "framework/ui/kestrix/logs/LogKinds.cpp"
FACTORY = "framework/ui/kestrix/app/LogFactory.cpp"
SUITE = "suite/kinds.tsv"
SAMPLES = "suite/samples/Kinds.cpp"
TOPICS = "suite/help/topics"
DAYS = "tests/unit/framework/ui/kestrix/logs/golden"
PICTURES = "docs/pictures"

ROW = re.compile(r"\.type = (\w+),\s*\.extension = L\"(\w+)\",\s*\.querySubType = (\d+),\s*\.commandCode = (\d+)")
CLASS = re.compile(r"\{(LogType\w+), &Create<")
SAMPLE = re.compile(r"\{L\"(\w+)\", Make")
DAY = re.compile(r"^log: (\w+)\nform: (\w+)$", re.MULTILINE)


def code(root, path):
    return lint.without_comments(lint.read(root, path))


def suite_rows(root):
    """The cells of each row of the suite's table by extension."""
    columns, *rows = (row.split("\t") for row in lint.read(root, SUITE).splitlines())
    return {row[columns.index("extension")]: dict(zip(columns, row)) for row in rows}


def golden_days(root):
    """The pairs of extension and form that have a golden day."""
    return {pair for path in lint.files(root, (".day",), (DAYS,)) for pair in DAY.findall(lint.read(root, path))}


class Tree:
    """What the tree holds for its kinds."""

    def __init__(self, root):
        self.root = root
        self.classes = set(CLASS.findall(code(root, FACTORY)))
        self.samples = set(SAMPLE.findall(code(root, SAMPLES)))
        self.suite = suite_rows(root)
        self.days = golden_days(root)
        self.languages = sorted(os.listdir(os.path.join(root, TOPICS)))

    def has(self, path):
        return os.path.isfile(os.path.join(self.root, path))

    def lacks(self, kind, extension, sub_type, command_code):
        """What the kind does not have, each with where it belongs."""
        if kind not in self.classes:
            yield f"has no class in {FACTORY}"
        if extension not in self.samples:
            yield f"has no samples in {SAMPLES}"
        for form in ("file", "database"):
            if (extension, form) not in self.days:
                yield f"has no golden day of form {form} in {DAYS}"
        picture = f"{PICTURES}/log-{extension.lower()}.png"
        if not self.has(picture):
            yield f"has no picture {picture}"
        row = self.suite.get(extension)
        if row is None:
            yield f"has no row in {SUITE}"
            return
        if (row["sub_type"], row["purge_type"]) != (sub_type, command_code):
            yield f"has another sub type or command code than its row in {SUITE}"
        for language in self.languages:
            topic = f"{TOPICS}/{language}/{row['topic']}.html"
            if not self.has(topic):
                yield f"has no help topic {topic}"


def main():
    root = lint.root_argument()
    findings = lint.Findings()
    tree, text = Tree(root), code(root, VIEWER)
    rows = list(ROW.finditer(text))
    if len(rows) != text.count(".extension ="):
        findings.add(VIEWER, 1, "a row is not read; begin each with type, extension, querySubType and commandCode")
    for row in rows:
        for lack in tree.lacks(*row.groups()):
            findings.add(VIEWER, lint.line_of(text, row.start()), f"{row[2]} {lack}; see docs/adding-a-log.md")
    for extension in tree.suite.keys() - {row[2] for row in rows}:
        findings.add(SUITE, 1, f"{extension} is no kind of the viewer; give it a row in {VIEWER}, or remove it")
    findings.finish()


if __name__ == "__main__":
    main()
