#!/usr/bin/env python3
"""The kinds of log that the suite knows, kinds.tsv: one line a kind, in the order of the help's contents.

    extension   of its daily files
    sub_type    its number in queries and in the database
    purge_type  its number in an order to purge
    contexts, topic, title, keywords
                its topic in the help, as help/topics.py says; the topic is the column `file` there

The forms of their lines stand in lines.tsv, see lines.py.

usage: kinds.py KINDS.TSV LINES.TSV OUTPUT.CPP    writes what the programs know of the kinds
"""

import collections
import pathlib
import re
import sys

import lines
import tables

COLUMNS = ["extension", "sub_type", "purge_type", "contexts", "topic", "title", "keywords"]
Kind = collections.namedtuple("Kind", ["place", *COLUMNS])

# What a cell must be, for the columns that the programs read.
SHAPES = {
    "extension": "[A-Z]{3}",
    "sub_type": r"\d+",
    "purge_type": r"\d+",
    "title": "[A-Za-z ]+",
}

SOURCE = """// Made of suite/kinds.tsv and suite/lines.tsv.
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


def forms_of(kind, forms):
    """The forms of the lines of a kind. Raises MalformedTable when it has none, or two with the time elsewhere."""
    found = [form for form in forms if form.extension == kind.extension]
    if not found:
        raise tables.MalformedTable(f"{kind.place}: {kind.extension} has no form of lines")
    for form in found:
        if lines.time_token(form) != lines.time_token(found[0]):
            raise tables.MalformedTable(f"{form.place}: the time of {kind.extension} is another token than before")
    return found


def source(kinds, forms):
    """The tables in C++."""
    tokens_and_forms, rows = "", ""
    for kind in kinds:
        found, form_rows = forms_of(kind, forms), []
        for number, form in enumerate(found):
            name = f"{kind.extension}Tokens{number}"
            tokens = "".join(f"    {row},\n" for row in lines.token_rows(form))
            tokens_and_forms += f"constexpr TokenForm {name}[] = {{\n{tokens}}};\n"
            form_rows.append(lines.form_row(form, name))
        tokens_and_forms += f"constexpr LineForm {kind.extension}Forms[] = {{{', '.join(form_rows)}}};\n"
        rows += (f'    {{L"{kind.extension}", {kind.sub_type}, {kind.purge_type}, {lines.time_token(found[0])}, '
                 f'{kind.extension}Forms, "{kind.title}"}},\n')
    for form in forms:
        if form.extension not in {kind.extension for kind in kinds}:
            raise tables.MalformedTable(f"{form.place}: {form.extension} is no kind of log")
    return SOURCE.format(forms=tokens_and_forms, kinds=rows)


def main(kind_table, line_table, target):
    try:
        text = source(read(pathlib.Path(kind_table)), lines.read(pathlib.Path(line_table)))
    except tables.MalformedTable as error:
        sys.exit(str(error))
    pathlib.Path(target).write_text(text, encoding="utf-8")


if __name__ == "__main__":
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    main(*sys.argv[1:])
