"""Every way to open a book with every type of book: one table, from which the stories are generated.

A cell is the kind that the book's record gets: 0 text, 1 rich text, 2 page, 3 any other file; "-"
where the dialog does not list it. A row without a cell for each way fails when it is read."""
import os

from harness import books
from harness.html_story import paragraphs

LINES = books.lines("latin", 400)
NEITHER = "of no type"  # a first line that no kind of book begins with

# The rows are in the order of the names: so they stand in the dialog.
TABLE = """
                     typed          clicked        drop on    command  history  second
                     txt rtf htm *  txt rtf htm *  text page  line              profile
a-text.txt            0   0   0  0   0   -   -  0    0    0     0        0        0
b-text.book           0   1   2  3   -   -   -  3    3    3     3        3        3
c-text                0   1   2  3   -   -   -  3    3    3     3        3        3
d-rich.rtf            1   1   1  1   -   1   -  1    1    1     1        1        1
e-rich.book           0   1   2  1   -   -   -  1    1    1     1        1        1
f-rich                0   1   2  3   -   -   -  3    3    3     3        3        3
g-page.html           2   2   2  2   -   -   2  2    2    2     2        2        2
h-page.book           0   1   2  3   -   -   -  3    3    3     3        3        3
i-page                0   1   2  3   -   -   -  3    3    3     3        3        3
j-rich-as.txt         0   0   0  1   0   -   -  1    1    1     1        1        1
k-page-as.txt         0   0   0  0   0   -   -  0    0    0     0        0        0
"""
WAYS = ("typed text", "typed rich", "typed page", "typed all",
        "clicked text", "clicked rich", "clicked page", "clicked all",
        "drop on text", "drop on page", "command line", "history", "second profile")
PAGE = 2


def cells(way):
    """The names of the books and the kinds that they get in this way; None: not listed."""
    rows = [line.split() for line in TABLE.strip().splitlines()[2:]]
    column = {}
    for name, *kinds in rows:
        if len(kinds) != len(WAYS):
            raise AssertionError(f"{name} has {len(kinds)} cells for {len(WAYS)} ways")
        kind = kinds[WAYS.index(way)]
        column[name] = None if kind == "-" else int(kind)
    return column


def cells_run(way, on_wine):
    """The cells of this way that the stories run: all; under Wine, which is slow, of the typed and
    the dropped ones every other, as on a chess board: each row by half of these ways."""
    column = cells(way)
    if not on_wine or not way.startswith(("typed", "drop")):
        return column
    return {name: kind for number, (name, kind) in enumerate(column.items())
            if number % 2 == WAYS.index(way) % 2}


def write(folder, name):
    """The book of this row; its name says its type and what shows that type."""
    path = os.path.join(folder, name)
    told_by_content = "." in name
    if "rich" in name:
        books.write_rtf_book(path, LINES)
        if not told_by_content:
            _put_before(path, NEITHER + "\r\n")
    elif "page" in name:
        with open(path, "w", encoding="ascii") as file:
            start = "<!DOCTYPE html>\n" if told_by_content else NEITHER + "\n"
            file.write(f"{start}<html><body>\n{paragraphs(LINES)}</body></html>\n")
    else:
        books.write_book(path, LINES)
    return path


def _put_before(path, text):
    with open(path, encoding="ascii") as file:
        rest = file.read()
    with open(path, "w", encoding="ascii") as file:
        file.write(text + rest)


def first_line(path, kind):
    """What the first line of all the text is when it is copied out of the view of this kind."""
    with open(path, encoding="ascii") as file:
        source = file.read()
    if source.startswith("{\\rtf") and kind != PAGE:
        return LINES[0]
    lines = [line for line in source.splitlines() if line.strip()]
    if kind != PAGE:
        return lines[0]  # of the source
    if path.endswith(".book"):
        return lines[0]  # the engine takes an ending that it does not know for one of plain text
    if "<html>" in source:
        return NEITHER if source.startswith(NEITHER) else LINES[0]
    return " ".join(lines[:2])  # the page runs on
