"""The topics of the help: the table topics.tsv, the pieces of HTML in a folder topics/LANGUAGE, and the rules for both.

topics.tsv has one line a topic, in the order of the contents. Each kind of log has a topic, too: its columns stand in
the table of the kinds, ../kinds.tsv, and it comes below the topic LOGS.

    after     the topic of a kind of log that this one follows, on its level; empty for a topic of the highest level
    contexts  the numbers with which the viewer asks for the topic, separated by blanks; none for most
    file      the name of the page and of its piece, without the ending
    title     the heading of the page and its line in the contents
    keywords  its lines in the index, separated by "; "

Titles and keywords are English. The folder of another language has its own in titles.tsv, one line a topic, with the
columns file, title and keywords.

A piece is what stands on the page below its heading. In it, <b> marks a text of the viewer and nothing else: the name
of a button, a column or a log, a value, a message. Each must be a text of that language in
resource/texts.tsv. A link is the name of another page; nothing leads out of the help file.
"""

import collections
import html.parser
import pathlib
import re
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent))
import kinds  # noqa: E402
import tables  # noqa: E402
from languages import ENGLISH, LANGUAGES  # noqa: E402
from tables import MalformedTable  # noqa: E402

COLUMNS = ["after", "contexts", "file", "title", "keywords"]
Topic = collections.namedtuple("Topic", "place level contexts file title keywords")

LOGS = "logs"

TAGS = {"a", "b", "code", "h2", "i", "li", "ol", "p", "table", "td", "th", "tr", "ul"}

TITLES = "titles.tsv"
TITLE_COLUMNS = ["file", "title", "keywords"]


def make_topic(place, level, contexts, file, title, keywords):
    if not re.fullmatch(r"(\d+( \d+)*)?", contexts):
        raise MalformedTable(f"{place}: the contexts are no numbers")
    return Topic(place, level, [int(each) for each in contexts.split()], file, title, words(keywords))


def words(keywords):
    return [each for each in keywords.split("; ") if each]


def in_language(topics, table):
    """The topics with the titles and keywords of another language. Raises MalformedTable when one is left out."""
    rows = {file: (place, title, keywords) for place, (file, title, keywords) in tables.read(table, TITLE_COLUMNS)}
    for file in rows.keys() - {topic.file for topic in topics}:
        raise MalformedTable(f"{rows[file][0]}: there is no topic '{file}'")
    for topic in topics:
        if topic.file not in rows:
            raise MalformedTable(f"{table.parent.name}/{table.name}: the topic '{topic.file}' is missing")
        place, title, keywords = rows[topic.file]
        yield topic._replace(place=place, title=title, keywords=words(keywords))


def read_table(folder, language=ENGLISH):
    """The topics in the order of the contents."""
    topics = read_english(folder)
    if language not in LANGUAGES:
        raise MalformedTable(f"languages.py does not have {language}")
    return topics if language == ENGLISH else list(in_language(topics, folder / "topics" / language / TITLES))


def read_english(folder):
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
    """A caption without its access key or the mark of it, its colon and its dots."""
    name = re.sub(r"\(&.\)", "", re.sub(r"\s+", " ", name))
    return name.strip().replace("&", "").removesuffix("...").removesuffix(":")


def screen_texts(texts_tsv, language):
    """What the viewer can show in a language: the texts of its column, and the answers of message boxes."""
    names, *lines = (line.split("\t") for line in texts_tsv.read_text(encoding="utf-8").splitlines())
    texts = {line[names.index(language)] for line in lines}
    return {plain(text) for text in texts | LANGUAGES[language].answers}


class Piece(html.parser.HTMLParser):
    """One piece of HTML, read: its links, the names that it quotes, and what is wrong with its tags."""

    def __init__(self, text, codec):
        super().__init__()
        self.codec = codec
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
        if not encodes(data, self.codec):
            self.errors.append(f"'{data.strip()}' has no form in the code page ({self.codec})")


def encodes(text, codec):
    return text.encode(codec, errors="ignore").decode(codec) == text


def table_violations(topics, codec):
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
        if not re.fullmatch(r"[^\W\d_]([^\W_]|[ -])*", topic.title):
            yield topic.place, f"the title '{topic.title}' is not of letters, digits, blanks and hyphens alone"
        if not encodes(topic.title + "".join(topic.keywords), codec):
            yield topic.place, f"title or keywords have no form in the code page ({codec})"
        if not topic.keywords:
            yield topic.place, f"the index has nothing for '{topic.title}'"


def piece_violations(text, codec, pages, names):
    piece = Piece(text, codec)
    yield from piece.errors
    for link in piece.links:
        if link not in pages:
            yield f"the link {link} leads nowhere"
    for name in piece.names:
        if plain(name) not in names:
            yield f"the viewer has no text '{plain(name)}'"


def violations(folder, language, topics, names):
    """All that breaks a rule, one line each; `names` are the texts of the viewer in the language."""
    codec, place_of_pieces = LANGUAGES[language].codec, folder / "topics" / language
    for place, message in table_violations(topics, codec):
        yield f"{place}: {message}"
    pages = {topic.file + ".html" for topic in topics}
    pieces = {path.name for path in place_of_pieces.iterdir()} - {TITLES}
    for name in sorted(pages - pieces):
        yield f"topics/{language}/{name}: the file is missing"
    for name in sorted(pieces - pages):
        yield f"topics/{language}/{name}: no topic has it"
    for name in sorted(pages & pieces):
        text = (place_of_pieces / name).read_text(encoding="utf-8")
        for message in piece_violations(text, codec, pages, names):
            yield f"topics/{language}/{name}: {message}"
