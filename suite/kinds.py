#!/usr/bin/env python3
"""The kinds of log that the suite knows, kinds.tsv: one line a kind, in the order of the help's contents.

    extension   of its daily files
    sub_type    its number in queries and in the database
    purge_type  its number in an order to purge
    time_token  the token of its lines that holds the time, counted from 0
    file_forms  which lines of its daily files get one more token, an empty one, in the database: SOURCES:TOKENS, where
                SOURCES are the sources of the records, a number, a range as in 1-3 or * for all, and TOKENS is the
                number of tokens in the file; separated by blanks, the first that fits counts. Empty when both forms
                are the same
    contexts, topic, title, keywords
                its topic in the help, as help/topics.py says; the topic is the column `file` there

usage: kinds.py KINDS.TSV OUTPUT.CPP    writes what the programs know of the kinds
"""

import collections
import pathlib
import re
import sys

import tables

COLUMNS = ["extension", "sub_type", "purge_type", "time_token", "file_forms", "contexts", "topic", "title", "keywords"]
Kind = collections.namedtuple("Kind", ["place", *COLUMNS])

FORM = r"(\d+(-\d+)?|\*):\d+"

# What a cell must be, for the columns that the programs read.
SHAPES = {
    "extension": "[A-Z]{3}",
    "sub_type": r"\d+",
    "purge_type": r"\d+",
    "time_token": r"\d+",
    "file_forms": f"({FORM}( {FORM})*)?",
    "title": "[A-Za-z ]+",
}

ANY_SOURCE = "0-4294967295"

SOURCE = """// Made of suite/kinds.tsv.
#include "suite/database/LogKinds.h"

namespace EventLog
{{

namespace
{{

{forms}
constexpr LogKind Kinds[] = {{
{kinds}}};

}} // namespace

std::span<const LogKind> AllLogKinds()
{{
    return Kinds;
}}

}} // namespace EventLog
"""


def read(path):
    """The kinds in the order of the table. Raises MalformedTable for a cell of another shape and a name used twice."""
    seen, kinds = set(), []
    for place, cells in tables.read(path, COLUMNS):
        kind = Kind(place, *cells)
        for column, shape in SHAPES.items():
            if not re.fullmatch(shape, getattr(kind, column)):
                raise tables.MalformedTable(f"{place}: the {column} '{getattr(kind, column)}' has another form")
        for column in ("extension", "sub_type", "purge_type"):
            name = (column, getattr(kind, column))
            if name in seen:
                raise tables.MalformedTable(f"{place}: the {column} {name[1]} stands twice")
            seen.add(name)
        kinds.append(kind)
    return kinds


def form_rows(kind):
    """The file forms of a kind as rows in C++."""
    for form in kind.file_forms.split():
        sources, tokens = form.replace("*", ANY_SOURCE).split(":")
        first, _, last = sources.partition("-")
        yield f"{{{first}u, {last or first}u, {tokens}}}"


def source(kinds):
    """The table in C++."""
    forms, rows = "", ""
    for kind in kinds:
        name = ""
        if kind.file_forms:
            name = f"{kind.extension}Forms"
            forms += f"constexpr FileForm {name}[] = {{{', '.join(form_rows(kind))}}};\n"
        rows += (f'    {{L"{kind.extension}", {kind.sub_type}, {kind.purge_type}, {kind.time_token}, {name or "{}"}, '
                 f'"{kind.title}"}},\n')
    return SOURCE.format(forms=forms, kinds=rows)


def main(table, target):
    try:
        kinds = read(pathlib.Path(table))
    except tables.MalformedTable as error:
        sys.exit(str(error))
    pathlib.Path(target).write_text(source(kinds), encoding="utf-8")


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    main(*sys.argv[1:])
