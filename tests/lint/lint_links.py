"""The links of the documents: each that names a file or a folder of the tree leads to one."""

import os
import re

import lint

LINK = re.compile(r"\]\(([^)\s]+)\)")
CODE_BLOCK = re.compile(r"^```.*?^```", re.DOTALL | re.MULTILINE)


def targets(text):
    """The line and the target of each link that stays in the tree."""
    text = CODE_BLOCK.sub(lambda block: "\n" * block[0].count("\n"), text)
    for match in LINK.finditer(text):
        target = match[1].partition("#")[0]
        if target and "://" not in target:
            yield lint.line_of(text, match.start()), target


def main():
    root = lint.root_argument()
    findings = lint.Findings()
    for path in lint.files(root, (".md",)):
        for line, target in targets(lint.read(root, path)):
            if not os.path.exists(os.path.join(root, os.path.dirname(path), target)):
                findings.add(path, line, f"the link {target} leads nowhere; name a file of the tree, from {path}'s folder")
    findings.finish()


if __name__ == "__main__":
    main()
