"""Includes go down only, and each is written from the root of the repository. Tests may include everything."""

import os
import re

import lint

# From the bottom up. A file belongs to the layer with the longest beginning of its path, and may include its own layer
# and those above it in this list.
LAYERS = (
    "platform/dialog/",
    "common/VdCommon/",
    "common/",
    "framework/ui/kestrix/controls/",
    "framework/ui/kestrix/logs/",
    "framework/ui/kestrix/report/",
    "framework/ui/kestrix/app/",
    "framework/ui/kestrix/app/page/",
    "framework/ui/kestrix/app/KestrixDlg",
    "framework/ui/kestrix/app/LogForm",
    "framework/ui/kestrix/app/Kestrix.",
    "framework/ui/kestrix/app/Main.",
)

# The numbers of the language file belong to no layer.
FREE = {"resource/resource.h", "resource/DialogTexts.h", "resource/UpdateTexts.h", "resource/WebAndTaskTexts.h"}

# What the libraries of the suite and the product agree on. These lie at the bottom, and are all that the suite shares
# with the product beside the headers made of common/*.idl.
INTERFACES = {"common/OrlDbMg.h", "common/VdDbg.h"}

INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*(?:"(?P<quoted>[^"\n]+)"|<(?P<angled>[^>\n]+)>)', re.MULTILINE)


def layer_of(path):
    """The number of a product file's layer, or None for all other files."""
    if path in INTERFACES:
        return 0
    inside = [beginning for beginning in LAYERS if path.startswith(beginning)]
    return LAYERS.index(max(inside, key=len)) if inside else None


def interface_of(target):
    """The interface definition that a generated header is made of."""
    return re.sub(r"\.h$", ".idl", target)


def exists(root, target):
    return any(os.path.isfile(os.path.join(root, path)) for path in (target, interface_of(target)))


def suite_may_include(root, target):
    made_of_interface = os.path.dirname(target) == "common" and os.path.isfile(os.path.join(root, interface_of(target)))
    return target.startswith("suite/") or target in INTERFACES or made_of_interface


def objection(root, path, target):
    """Why the file at path may not include target, a file of the project; None when it may."""
    if target in FREE:
        return None
    own, other = layer_of(path), layer_of(target)
    if path.startswith("suite/"):
        if not suite_may_include(root, target):
            return "the suite shares common/*.idl, common/OrlDbMg.h and common/VdDbg.h alone; move the declaration there"
    elif own is not None:
        if other is None:
            return "the product does not depend on this folder; move what both need down into the product"
        if other > own:
            return (f"{LAYERS[own]} lies below {LAYERS[other]}; move the declaration down, "
                    "or let the upper layer implement an abstract class of the lower one")
    return None


def check(root, path, findings):
    text = lint.without_comments(lint.read(root, path))
    for match in INCLUDE.finditer(text):
        line = lint.line_of(text, match.start())
        target = match["quoted"] or match["angled"]
        if match["angled"]:
            if "/" in target and exists(root, target):
                findings.add(path, line, f'<{target}> is a file of the project; write "{target}"')
        elif target != os.path.normpath(target) or not exists(root, target):
            findings.add(path, line, f'"{target}" is no file seen from the root; write its path from there, '
                                     "or <...> when it comes from outside the project")
        else:
            reason = objection(root, path, target)
            if reason:
                findings.add(path, line, f'"{target}" may not be included here: {reason}')


def main():
    root = lint.root_argument()
    findings = lint.Findings()
    for path in lint.files(root, lint.CODE):
        check(root, path, findings)
    findings.finish()


if __name__ == "__main__":
    main()
