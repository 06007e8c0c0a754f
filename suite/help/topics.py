"""The topics of the help: the table topics.tsv, the pieces of HTML in the folder topics, and the rules for both.

topics.tsv has one line a topic, in the order of the contents:

    level     1, or 2 for a topic below the last one of level 1
    contexts  the numbers with which the viewer asks for the topic, separated by blanks; none for most
    file      the name of the page and of its piece in topics/, without the ending
    title     the heading of the page and its line in the contents
    keywords  its lines in the index, separated by "; "

A piece is what stands on the page below its heading. In it, <b> marks a text of the viewer and nothing else: the name
of a button, a column or a log, a value, a message. Each must be a text of resource/texts.tsv or a caption of the
dialogs. A link is the name of another page; nothing leads out of the help file.
"""

import collections
import html.parser
import re

COLUMNS = ["level", "contexts", "file", "title", "keywords"]
Topic = collections.namedtuple("Topic", "line level contexts file title keywords")

# The numbers that the viewer asks for: one a log, a second one for the logs in the window with the report, and that of
# the report.
CONTEXTS = {
    210, 211, 212, 213, 217, 230, 231, 232, 237, 265, 272, 299, 311,
    307, 308, 309, 310, 312, 313, 314, 315, 316, 317,
    241,
}

TAGS = {"a", "b", "code", "h2", "i", "li", "ol", "p", "table", "td", "th", "tr", "ul"}

# Captions that message boxes and dialogs have from the platform or by custom.
USUAL_CAPTIONS = {"OK", "Cancel", "Yes", "No"}


class MalformedTable(Exception):
    pass


def read_table(path):
    """The topics in the order of the contents."""
    lines = path.read_text(encoding="utf-8").splitlines()
    if not lines or lines[0].split("\t") != COLUMNS:
        raise MalformedTable(f"{path.name}:1: the columns must be {', '.join(COLUMNS)}")
    topics = []
    for number, line in enumerate(lines[1:], 2):
        cells = line.split("\t")
        if len(cells) != len(COLUMNS):
            raise MalformedTable(f"{path.name}:{number}: {len(cells)} columns instead of {len(COLUMNS)}")
        level, contexts, file, title, keywords = cells
        if level not in ("1", "2") or not re.fullmatch(r"(\d+( \d+)*)?", contexts):
            raise MalformedTable(f"{path.name}:{number}: level or contexts are no numbers")
        topics.append(Topic(number, int(level), [int(each) for each in contexts.split()], file, title,
                            [each for each in keywords.split("; ") if each]))
    return topics


def plain(name):
    """A caption without its mark of the access key, its colon and its dots."""
    return re.sub(r"\s+", " ", name).strip().replace("&", "").removesuffix("...").removesuffix(":")


def screen_texts(texts_tsv, dialogs_rc):
    """What the viewer can show: the texts in every language of the table, and the captions of the dialogs."""
    texts = {text for line in texts_tsv.read_text(encoding="utf-8").splitlines()[1:] for text in line.split("\t")[4:]}
    captions = set(re.findall(r'^\s*CONTROL "([^"]+)"', dialogs_rc.read_text(encoding="utf-8"), re.MULTILINE))
    return {plain(text) for text in texts | captions | USUAL_CAPTIONS}


class Piece(html.parser.HTMLParser):
    """One piece of HTML, read: its links, the names that it quotes, and what is wrong with its tags."""

    def __init__(self, text):
        super().__init__()
        self.links, self.names, self.errors, self.open = [], [], [], []
        self.feed(text)
        self.close()
        self.errors += [f"<{tag}> is never closed" for tag in self.open]

    def handle_starttag(self, tag, attributes):
        if tag not in TAGS:
            self.errors.append(f"the tag <{tag}> is not among those of the help")
        self.open.append(tag)
        for name, value in attributes:
            if (tag, name) == ("a", "href"):
                self.links.append(value)
            else:
                self.errors.append(f"<{tag}> has the attribute {name}")
        if tag == "b":
            self.names.append("")

    def handle_endtag(self, tag):
        if not self.open or self.open.pop() != tag:
            self.errors.append(f"</{tag}> closes nothing")

    def handle_data(self, data):
        if "b" in self.open:
            self.names[-1] += data
        if not data.isascii():
            self.errors.append(f"'{data.strip()}' is not ASCII")


def table_violations(topics):
    if not topics or topics[0].level != 1:
        yield 2, "the first topic must have the level 1"
    for name, values in (("context", [(number, topic) for topic in topics for number in topic.contexts]),
                         ("file", [(topic.file, topic) for topic in topics]),
                         ("title", [(topic.title, topic) for topic in topics])):
        seen = set()
        for value, topic in values:
            if value in seen:
                yield topic.line, f"the {name} {value} stands twice"
            seen.add(value)
        if name == "context":
            for number in sorted(CONTEXTS - seen):
                yield 1, f"the context {number} is missing"
            for number in sorted(seen - CONTEXTS):
                yield 1, f"the viewer asks for no context {number}"
    for topic in topics:
        # The compiler takes both as they are.
        if not re.fullmatch("[a-z]+", topic.file):
            yield topic.line, f"the file '{topic.file}' is not of small letters alone"
        if not re.fullmatch("[A-Za-z ]+", topic.title):
            yield topic.line, f"the title '{topic.title}' is not of letters and blanks alone"
        if not topic.keywords:
            yield topic.line, f"the index has nothing for '{topic.title}'"


def piece_violations(text, pages, names):
    piece = Piece(text)
    yield from piece.errors
    for link in piece.links:
        if link not in pages:
            yield f"the link {link} leads nowhere"
    for name in piece.names:
        if plain(name) not in names:
            yield f"the viewer has no text '{plain(name)}'"


def violations(folder, topics, names):
    """All that breaks a rule, one line each; `names` are the texts of the viewer."""
    for line, message in table_violations(topics):
        yield f"topics.tsv:{line}: {message}"
    pages = {topic.file + ".html" for topic in topics}
    pieces = {path.name for path in (folder / "topics").iterdir()}
    for name in sorted(pages - pieces):
        yield f"topics/{name}: the file is missing"
    for name in sorted(pieces - pages):
        yield f"topics/{name}: topics.tsv does not name it"
    for name in sorted(pages & pieces):
        text = (folder / "topics" / name).read_text(encoding="utf-8")
        for message in piece_violations(text, pages, names):
            yield f"topics/{name}: {message}"
