"""Writes what the help compiler reads: the pages, the contents, the index and the project."""

import pathlib
import struct

from languages import LANGUAGES

VERSION = (pathlib.Path(__file__).parents[2] / "VERSION").read_text(encoding="utf-8").strip()

PAGE = """<!DOCTYPE html PUBLIC "-//W3C//DTD HTML 4.01//EN">
<html lang="{language}">
<head>
<meta http-equiv="Content-Type" content="text/html; charset={charset}">
<title>{title}</title>
<link rel="stylesheet" type="text/css" href="style.css">
</head>
<body>
<h1>{title}</h1>
{piece}</body>
</html>
"""

SITE_MAP = """<!DOCTYPE HTML PUBLIC "-//IETF//DTD HTML//EN">
<html>
<body>
{list}</body>
</html>
"""

ITEM = """<li><object type="text/sitemap">
<param name="Name" value="{name}">
<param name="Local" value="{file}.html">
</object>
"""

# Of the window: contents and index beside the page, and the search where it works; the page found in the contents,
# place and size kept; the buttons for hiding the contents, back, forward, first page, options and printing.
PANES = 0x40120
SEARCH_PANE = 0x400
BUTTONS = 0x304E
PANE_WIDTH = 240

PROJECT = """[OPTIONS]
Compatibility=1.1 or later
Compiled file=vdhelp.chm
Contents file=vdhelp.hhc
Index file=vdhelp.hhk
Default topic={first}.html
Default Window=main
Title={title}
Language={identifier}
Full-text search=Yes
Binary TOC=No
Binary Index=No

[WINDOWS]
{windows}

[FILES]
{files}
"""


def contents(topics):
    text, level = "", 0
    for topic in topics:
        text += "<ul>\n" * (topic.level - level) + "</ul>\n" * (level - topic.level)
        text += ITEM.format(name=topic.title, file=topic.file)
        level = topic.level
    return SITE_MAP.format(list=text + "</ul>\n" * level)


def index(topics):
    lines = sorted((keyword.casefold(), keyword, topic.file) for topic in topics for keyword in topic.keywords)
    items = "".join(ITEM.format(name=keyword, file=file) for _, keyword, file in lines)
    return SITE_MAP.format(list=f"<ul>\n{items}</ul>\n")


def title(language):
    return f"{language.title} {VERSION}"


def window(name, page, language):
    panes = PANES | (SEARCH_PANE if language.search else 0)
    return (f'{name}="{title(language)}","vdhelp.hhc","vdhelp.hhk","{page}.html","{page}.html",,,,,'
            f"{panes:#x},{PANE_WIDTH},{BUTTONS:#x},,,,,,,,0")


def project(topics, language):
    """The project. Besides the window of the help there is one for each page that the viewer asks for: nobody opens
    them, but the compiler puts the names of their pages into its table of texts, where #IVB can point at them."""
    pages = [("main", topics[0].file)] + [("at_" + topic.file, topic.file) for topic in topics if topic.contexts]
    windows = [window(name, page, language) for name, page in pages]
    files = [topic.file + ".html" for topic in topics] + ["style.css", "#IVB"]
    return PROJECT.format(first=topics[0].file, title=title(language), identifier=language.identifier,
                          windows="\n".join(windows), files="\n".join(files))


def context_table(topics, texts=None):
    """The file #IVB: its length, then each context number with the place of its page's name in `texts`, the file
    #STRINGS. All little endian, 32 bits. Without the texts, a table of the same length with zeros.

    The compiler would make this file of the sections ALIAS and MAP, but fpc-utils 3.2.2 writes the path of the project
    on this machine in front of each name, and takes one number a page only."""
    rows = []
    for number, file in sorted((number, topic.file) for topic in topics for number in topic.contexts):
        name = b"\0" + file.encode() + b".html\0"
        rows.append((number, texts.index(name) + 1 if texts else 0))
    return struct.pack("<I", 8 * len(rows)) + b"".join(struct.pack("<II", *row) for row in rows)


def write(source, name, topics, target):
    """Fills the folder `target` for the compiler from the folder `source`, in the language of this name."""
    language = LANGUAGES[name]

    def put(file, text):
        (target / file).write_bytes(text.encode(language.codec))

    for topic in topics:
        piece = (source / "topics" / name / (topic.file + ".html")).read_text(encoding="utf-8")
        put(topic.file + ".html", PAGE.format(language=name, charset=language.charset, title=topic.title, piece=piece))
    (target / "style.css").write_bytes((source / "style.css").read_bytes())
    put("vdhelp.hhc", contents(topics))
    put("vdhelp.hhk", index(topics))
    put("vdhelp.hhp", project(topics, language))
    (target / "#IVB").write_bytes(context_table(topics))
