"""Tables of text: a line of column names, then one line a row, the cells separated by tabs."""


class MalformedTable(Exception):
    pass


def read(path, columns):
    """The rows of a table with exactly these columns: the place of each, as FILE:LINE, and its cells."""
    lines = path.read_text(encoding="utf-8").splitlines()
    if not lines or lines[0].split("\t") != columns:
        raise MalformedTable(f"{path.name}:1: the columns must be {', '.join(columns)}")
    for number, line in enumerate(lines[1:], 2):
        place, cells = f"{path.name}:{number}", line.split("\t")
        if len(cells) != len(columns):
            raise MalformedTable(f"{place}: {len(cells)} columns instead of {len(columns)}")
        yield place, cells
