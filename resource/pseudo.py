"""The pseudo language: the texts of a real one with accents on their letters, two fifths longer. Whatever a translation
may break shows in it: a text that does not fit, one that is not from the language file, a letter that is not kept."""

import math
import re

LANGUAGE = "qps-ploc"
IDENTIFIER = 0x0501

PLAIN = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"
ACCENTED = ("\u00c5\u0181\u00c7\u00d0\u00c9\u0191\u011c\u0124\u00ce\u0134\u0136\u013b\u1e40\u00d1\u00d6\u00de"
            "\u01ea\u0154\u0160\u0162\u00db\u1e7c\u0174\u1e8c\u00dd\u017d"
            "\u00e5\u0180\u00e7\u00f0\u00e9\u0192\u011d\u0125\u00ee\u0135\u0137\u013c\u1e41\u00f1\u00f6\u00fe"
            "\u01eb\u0155\u0161\u0163\u00fb\u1e7d\u0175\u1e8b\u00fd\u017e")
ACCENTS = str.maketrans(PLAIN, ACCENTED)

# What follows a text, as many letters of it as make the text longer by LONGER.
FILLER = "\u00f6\u00f1\u00e9\u0163\u0175\u00f6\u0163\u0125\u0155\u00e9\u00e9\u0192\u00f6\u00fb\u0155"
LONGER = 0.4

# What stays as it is: places for values, and the access key with its mark.
KEPT = re.compile(r"(%[-+ #0-9.]*[a-zA-Z]|&.)")

# What the text ends in, behind the filler.
END = re.compile(r"[.:,?]*\s*$")

# Values, which are no sentences.
VALUES = {"numeric", "font style", "face name", "wcsftime", "file filter"}


def text(plain, form, constraint):
    """The text in the pseudo language."""
    if form in VALUES or "fixed" in constraint.split("; "):
        return plain
    body, end = plain[:END.search(plain).start()], END.search(plain)[0]
    parts = KEPT.split(body)
    accented = "".join(part if place % 2 else part.translate(ACCENTS) for place, part in enumerate(parts))
    longer = math.ceil(len(body) * LONGER)
    return accented + (FILLER * (longer // len(FILLER) + 1))[:longer] + end
