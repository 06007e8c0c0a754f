"""The forms of the lines of each kind of log, lines.tsv: one line a form. Of a kind the first that fits a line counts.

    extension   of the kind
    sources     the numbers in the third token of such lines: a number, a range as in 1-3, or * for all of them
    tokens      a NAME:RULE for each token, separated by blanks; a line may have more. The name is for messages, with
                dashes for blanks, and a dash alone for a token that no log looks at. A + in front: a line of a daily
                file may end before this token, and gets it in the database, empty

    Without a rule a token may be anything. A ? behind one of these means that the token may be empty as well:

    HHMM          a time of day of four digits, or of six with the seconds
    HHMMSS        a time of day of six digits
    number        a whole number of 32 bits, in decimal, with or without sign
    3-7           such a number from 3 to 7
    source        a number that is not negative, or a hexadecimal one that begins with 0x
    hexadecimal   a number in hexadecimal, with or without 0x
"""

import collections
import re

import tables

COLUMNS = ["extension", "sources", "tokens"]
Form = collections.namedtuple("Form", ["place", *COLUMNS])

# What the programs call a rule, and the smallest and the largest number that it takes.
RULES = {
    "": ("Any", 0, 0),
    "HHMM": ("Minutes", 0, 0),
    "HHMMSS": ("Seconds", 0, 0),
    "number": ("Number", -2**31, 2**32 - 1),
    "source": ("Source", 0, 2**32 - 1),
    "hexadecimal": ("Hexadecimal", 0, 2**32 - 1),
}

SOURCES = r"\d+(-\d+)?|\*"
TOKEN = re.compile(r"(\+?)([a-z-]+)(?::(\w+|\d+-\d+)(\?)?)?")
ANY_SOURCE = "0-4294967295"


def read(path):
    """The forms in the order of the table. Raises MalformedTable for a cell that is none."""
    forms = [Form(place, *cells) for place, cells in tables.read(path, COLUMNS)]
    for form in forms:
        if not re.fullmatch(SOURCES, form.sources):
            raise tables.MalformedTable(f"{form.place}: the sources '{form.sources}' have another form")
        rows = list(token_rows(form))
        if not any("Rule::Minutes" in row or "Rule::Seconds" in row for row in rows):
            raise tables.MalformedTable(f"{form.place}: no token is a time")
    return forms


def rule(text, place):
    if re.fullmatch(r"\d+-\d+", text):
        least, most = map(int, text.split("-"))
        return "Number", least, most
    if text not in RULES:
        raise tables.MalformedTable(f"{place}: there is no rule '{text}'")
    return RULES[text]


def token_rows(form):
    """The tokens of a form as rows in C++."""
    may_lack = False
    for token in form.tokens.split(" "):
        found = TOKEN.fullmatch(token)
        if not found:
            raise tables.MalformedTable(f"{form.place}: the token '{token}' has another form")
        plus, name, text, empty = found.groups()
        if may_lack and not plus:
            raise tables.MalformedTable(f"{form.place}: '{token}' stands after one that a line may lack")
        may_lack = bool(plus)
        kind, least, most = rule(text or "", form.place)
        words = "" if name == "-" else name.replace("-", " ")
        yield (f'{{L"{words}", Rule::{kind}, {least}, {most}, {str(bool(empty)).lower()}, '
               f"{str(may_lack).lower()}}}")


def time_token(form):
    """The number of the token that is the time of the record, counted from 0."""
    return next(i for i, row in enumerate(token_rows(form)) if "Rule::Minutes" in row or "Rule::Seconds" in row)


def form_row(form, tokens):
    """A form as a row in C++, with the name of its tokens there."""
    first, _, last = form.sources.replace("*", ANY_SOURCE).partition("-")
    return f"{{{first}u, {last or first}u, {tokens}}}"
