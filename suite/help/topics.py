"""The topics of the help: the table topics.tsv, the pieces of HTML in the folder topics, and the rules for both.

topics.tsv has one line a topic, in the order of the contents. Each kind of log has a topic, too: its columns stand in
the table of the kinds, ../kinds.tsv, and it comes below the topic LOGS.

    after     the topic of a kind of log that this one follows, on its level; empty for a topic of the highest level
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
import pathlib
import re
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent))
import kinds  # noqa: E402
import tables  # noqa: E402
from tables import MalformedTable  # noqa: E402

COLUMNS = ["after", "contexts", "file", "title", "keywords"]
Topic = collections.namedtuple("Topic", "place level contexts file title keywords")

LOGS = "logs"

TAGS = {"a", "b", "code", "h2", "i", "li", "ol", "p", "table", "td", "th", "tr", "ul"}

# Captions that message boxes and dialogs have from the platform or by custom.
USUAL_CAPTIONS = {"OK", "Cancel", "Yes", "No"}


def make_topic(place, level, contexts, file, title, keywords):
    if not re.fullmatch(r"(\d+( \d+)*)?", contexts):
        raise MalformedTable(f"{place}: the contexts are no numbers")
    return Topic(place, level, [int(each) for each in contexts.split()], file, title,
                 [each for each in keywords.split("; ") if each])


def read_table(folder):
    """The topics in the order of the contents."""
    topics = []
    for place, (after, *cells) in tables.read(folder / "topics.tsv", COLUMNS):
        files = [topic.file for topic in topics]
        if after and after not in files:
            raise MalformedTable(f"{place}: there is no topic '{after}' before this one")
        topics.insert(files.index(after) + 1 if after else len(topics), make_topic(place, 2 if after else 1, *cells))
        if topics[-1].file == LOGS:
            topics += [make_topic(kind.place, 2, kind.contexts, kind.topic, kind.title, kind.keywords)
                       for kind in kinds.read(folder.parent / "kinds.tsv")]
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
    for name, values in (("context", [(number, topic) for topic in topics for number in topic.contexts]),
                         ("file", [(topic.file, topic) for topic in topics]),
                         ("title", [(topic.title, topic) for topic in topics])):
        seen = set()
        for value, topic in values:
            if value in seen:
                yield topic.place, f"the {name} {value} stands twice"
            seen.add(value)
    for topic in topics:
        # The compiler takes both as they are.
        if not re.fullmatch("[a-z]+", topic.file):
            yield topic.place, f"the file '{topic.file}' is not of small letters alone"
        if not re.fullmatch("[A-Za-z ]+", topic.title):
            yield topic.place, f"the title '{topic.title}' is not of letters and blanks alone"
        if not topic.keywords:
            yield topic.place, f"the index has nothing for '{topic.title}'"


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
    for place, message in table_violations(topics):
        yield f"{place}: {message}"
    pages = {topic.file + ".html" for topic in topics}
    pieces = {path.name for path in (folder / "topics").iterdir()}
    for name in sorted(pages - pieces):
        yield f"topics/{name}: the file is missing"
    for name in sorted(pieces - pages):
        yield f"topics/{name}: no topic has it"
    for name in sorted(pages & pieces):
        text = (folder / "topics" / name).read_text(encoding="utf-8")
        for message in piece_violations(text, pages, names):
            yield f"topics/{name}: {message}"
