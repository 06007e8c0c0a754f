#!/usr/bin/env python3
"""Checks texts.tsv and writes the texts of one language as a resource script.

usage: texts.py TEXTS.TSV LANGUAGE OUTPUT.RC
       texts.py TEXTS.TSV --languages             prints the languages, separated by semicolons

texts.tsv has one line a text: id, role (the translator's comment), format, constraint, and one column a language. A
number is the id of a text of the string table; CAPTION_NAME is what the templates of Kestrix.rc call a caption.
It is read without quotes and without trimming, since texts hold double quotes and begin or end in blanks.
The columns `format` and `constraint` are rules: every word of them is checked for every language, see FORMATS and
CONSTRAINTS. All violations are printed, one a line, and the exit status is 1 when there is any.

The language qps-ploc has no column: it is made of the first one, see pseudo.py.
"""

import locale
import re
import sys

import pseudo

KEYS = ["id", "role", "format", "constraint"]
ID = re.compile("[1-9][0-9]{0,4}|CAPTION_[A-Z_]+")
LONGEST_TEXT = 4096  # characters; resource compilers take no longer string

PRINTF = re.compile(r"%[-+ #0-9.]*[a-zA-Z]|%%|%")


def arguments(text):
    """The printf arguments of a text, in their order; a lone percent sign counts as one."""
    return [found for found in PRINTF.findall(text) if found != "%%"]


def is_file_filter(text):
    """The export's own extensions are in capitals, and the save dialog adds what the pattern says before they are."""
    parts = text.split("|")
    pairs = parts[:-2]
    return (text.endswith("||") and len(pairs) >= 4 and len(pairs) % 2 == 0 and all(pairs)
            and pairs[1] == "*.CSV" and pairs[3] == "*.TXT")


# What the column `format` may hold, and the test that a text of this format passes.
FORMATS = {
    "": lambda text: "%" not in text,
    "%s": lambda text: arguments(text) == ["%s"],
    "%d": lambda text: arguments(text) == ["%d"],
    "%u": lambda text: arguments(text) == ["%u"],
    "%u,%s": lambda text: arguments(text) == ["%u", "%s"],
    "numeric": lambda text: re.fullmatch("[0-9]{1,9}", text),
    "font style": lambda text: re.fullmatch("[01],[01],[1-9][0-9]?", text),
    "face name": lambda text: "%" not in text and text == text.strip(),
    "file filter": is_file_filter,
    "wcsftime": lambda text: arguments(text) and set(arguments(text)) <= {"%Y", "%m", "%d", "%x"},
}


def same_but_colon(one, other):
    return one.removesuffix(":") == other.removesuffix(":")


# What the column `constraint` may hold, its phrases separated by "; ": a pattern, and the test of a text.
# The test gets the text, the groups of the pattern, and all texts of the language by their numbers.
CONSTRAINTS = [
    # The export writes labels between double quotes and tabs without escaping.
    ("export line", lambda text, _, all_texts: not re.search('["\t\r\n]', text)),
    ("begins with blank", lambda text, _, all_texts: text.startswith(" ")),
    ("ends with blank", lambda text, _, all_texts: text.endswith(" ")),
    ("ends with colon", lambda text, _, all_texts: text.endswith(":") and text.count(":") == 1),
    ("no colon", lambda text, _, all_texts: ":" not in text),
    ("no number", lambda text, _, all_texts: not text[:1].isdigit()),
    (r"at most (\d+) characters", lambda text, groups, all_texts: len(text) <= int(groups[0])),
    (r"differs from (\d+)", lambda text, groups, all_texts: text != all_texts[int(groups[0])]),
    (r"same as (\d+)", lambda text, groups, all_texts: same_but_colon(text, all_texts[int(groups[0])])),
    (r"does not begin with (\d+)", lambda text, groups, all_texts: not text.startswith(all_texts[int(groups[0])])),
]

# These two look beyond one text or one language and are tested by check_across below.
ACROSS = re.compile(r"fixed|(unique|access key) in (.+)")

ACCESS_KEY = re.compile("&([0-9A-Za-z])")


def read_rows(path):
    """The languages, and the lines as dictionaries by column name. Ends the program on a malformed file."""
    with open(path, encoding="utf-8", newline="") as file:
        lines = file.read().split("\n")
    if lines.pop() != "":
        sys.exit(f"{path}: the last line does not end in a line feed")
    names = lines[0].split("\t")
    if names[:len(KEYS)] != KEYS or len(names) == len(KEYS):
        sys.exit(f"{path}:1: the columns must be {', '.join(KEYS)} and at least one language")
    rows = []
    for number, line in enumerate(lines[1:], 2):
        cells = line.split("\t")
        if len(cells) != len(names):
            sys.exit(f"{path}:{number}: {len(cells)} columns instead of {len(names)}")
        is_number = cells[0].isdigit()
        if not ID.fullmatch(cells[0]) or (is_number and int(cells[0]) > 0xFFFF):
            sys.exit(f"{path}:{number}: the id '{cells[0]}' is no number from 1 to 65535 and no CAPTION_NAME")
        rows.append(dict(zip(names, cells), line=number, id=int(cells[0]) if is_number else cells[0]))
    return names[len(KEYS):], rows


def order_of(number_or_name):
    """Numbers first."""
    return isinstance(number_or_name, str), number_or_name


def check_order(rows):
    for previous, row in zip(rows, rows[1:]):
        if row["id"] == previous["id"]:
            yield row, f"the id {row['id']} stands twice"
        elif order_of(row["id"]) < order_of(previous["id"]):
            yield row, f"the id {row['id']} stands behind {previous['id']}"


def check_text(row, language, all_texts):
    """The rules of one text in one language."""
    text = row[language]
    if not text.strip():
        yield row, f"{language}: the text is empty"
    if len(text) > LONGEST_TEXT:
        yield row, f"{language}: the text is longer than {LONGEST_TEXT} characters"
    if row["format"] not in FORMATS:
        yield row, f"unknown format '{row['format']}'"
    elif not FORMATS[row["format"]](text):
        yield row, f"{language}: '{text}' does not have the format '{row['format'] or 'no argument'}'"
    if "&" in text and "access key in" not in row["constraint"]:
        yield row, f"{language}: '{text}' has the mark of an access key, which stands in captions alone"
    for phrase in filter(None, row["constraint"].split("; ")):
        if ACROSS.fullmatch(phrase):
            continue
        matches = [(re.fullmatch(pattern, phrase), test) for pattern, test in CONSTRAINTS]
        matches = [(match, test) for match, test in matches if match]
        if not matches:
            yield row, f"unknown constraint '{phrase}'"
        for match, test in matches:
            if not test(text, match.groups(), all_texts):
                yield row, f"{language}: '{text}' breaks the constraint '{phrase}'"


def access_key(text):
    """The letter behind the mark, None when there is none or more than one."""
    found = ACCESS_KEY.findall(text)
    return found[0].casefold() if len(found) == 1 and text.count("&") == 1 else None


def check_once(row, kind, table, language, seen):
    """A text, or its access key, stands once in a table; `seen` has those of the rows before."""
    value = row[language].casefold() if kind == "unique" else access_key(row[language])
    if value is None:
        yield row, f"{language}: '{row[language]}' has no access key, a letter or digit behind the one '&'"
        return
    other = seen.setdefault((kind, table, language, value), row["id"])
    if other != row["id"]:
        what = f"'{row[language]}'" if kind == "unique" else f"the access key '{value}' of '{row[language]}'"
        yield row, f"{language}: {what} is also {'the text' if kind == 'unique' else 'that of'} {other} ({table})"


def check_across(rows, languages):
    """The rules that compare languages, or the texts of one code table or dialog."""
    seen = {}
    for row in rows:
        for phrase in row["constraint"].split("; "):
            match = ACROSS.fullmatch(phrase)
            if match and phrase == "fixed":
                if any(row[language] != row[languages[0]] for language in languages):
                    yield row, "the text must be the same in every language"
            elif match:
                for language in languages:
                    yield from check_once(row, *match.groups(), language, seen)


def violations(rows, languages):
    yield from check_order(rows)
    yield from check_across(rows, languages)
    for language in languages:
        all_texts = {row["id"]: row[language] for row in rows}
        for row in rows:
            yield from check_text(row, language, all_texts)


def quoted(text):
    """A text as a string of a resource script, where a double quote is written twice."""
    return '"' + text.replace("\\", "\\\\").replace('"', '""') + '"'


def language_identifier(language):
    """The number that Windows has for a language name."""
    if language == pseudo.LANGUAGE:
        return pseudo.IDENTIFIER
    for number, name in locale.windows_locale.items():
        if name.replace("_", "-") == language:
            return number
    sys.exit(f"{language} is no language name, such as en-US")


def write_script(path, rows, language):
    identifier = language_identifier(language)
    with open(path, "w", encoding="utf-8", newline="\n") as file:
        file.write(f"#pragma code_page(65001)\nLANGUAGE {identifier & 0x3FF:#x}, {identifier >> 10:#x}\n")
        file.writelines(f"#define {row['id']} {quoted(row[language])}\n" for row in rows if isinstance(row["id"], str))
        file.write("STRINGTABLE\nBEGIN\n")
        file.writelines(f"    {row['id']} {quoted(row[language])}\n" for row in rows if isinstance(row["id"], int))
        file.write("END\n")


def main(source, language, target):
    languages, rows = read_rows(source)
    if language == pseudo.LANGUAGE:
        for row in rows:
            row[language] = pseudo.text(row[languages[0]], row["format"], row["constraint"])
        languages.append(language)
    if language not in languages:
        sys.exit(f"{source}: there is no column for the language {language}")
    found = [f"{source}:{row['line']}: {message}" for row, message in violations(rows, languages)]
    if found:
        sys.exit("\n".join(found))
    write_script(target, rows, language)


if __name__ == "__main__":
    if sys.argv[2:] == ["--languages"]:
        print(";".join(read_rows(sys.argv[1])[0]), end="")
    elif len(sys.argv) == 4:
        main(*sys.argv[1:])
    else:
        sys.exit(__doc__)
