"""A real book that becomes another edition of itself, in the same file: rich text, or a page's
source, in place of the text. Place and bookmarks stay at their words."""
import html
import shutil

from harness import books
from harness.clipboard import copied
from harness.dialog import Dialog
from harness.story import Story, main
from harness.text_view import SCROLL_BAR, settled_strip, view_top
from harness.wait import wait_for

TEXT, RICH, PAGE = ("txt/War and Peace.txt", "rtf/War and Peace (word processor).rtf",
                    "htm/War and Peace.htm")
PLACES = (7, 33, 58, 91)  # per cent of the book: three bookmarks, and where reading went on
LETTERS = 18  # that are compared
LINES = 60   # pixels from the first line at the top into one that stands whole


def letters(text):
    return "".join(filter(str.isalpha, text)).lower()


class Editions(Story):
    def setUp(self):
        self.book = self.path("peace.txt")
        self.program = self.reader()

    def put(self, edition):
        shutil.copyfile(self.real_book(edition), self.book)

    def start(self):
        self.program.start(self.book)
        self.program.wait_for_book(self.book)

    def read_and_mark(self):
        """The words at the bookmarks and at the place."""
        self.put(TEXT)
        self.start()
        for place in PLACES:
            before = settled_strip(self.program)
            dialog = Dialog(self.program, "Go To", "ctrl+g")
            dialog.type(str(place))
            dialog.close()
            wait_for(lambda before=before: not settled_strip(self.program).looks_like(before),
                     "another place")
            if place != PLACES[-1]:
                self.program.key("ctrl+d")
                wait_for(self.program.popups, "the Bookmark menu")
                self.program.close_menu()
        self.program.close()
        self.assertEqual(len(self.places()), len(PLACES))
        return self.words()

    def words(self):
        with open(self.book, encoding="utf-8-sig", newline="") as file:
            text = file.read()
        return [letters(books.text_at(text, place, 3 * LETTERS))[:LETTERS] for place in self.places()]

    def places(self):
        """The bookmarks, then the reading place, as the closed program stored them."""
        record = self.book_record(self.program, self.book)
        return [*(int(mark.split(",")[0]) for mark in record["Marks"].split("|")),
                int(record["LastPos"])]

    def top(self):
        """The letters of the first lines that are shown: selected by the mouse and copied, with
        characters for a page's references to them."""
        settled_strip(self.program)
        left, top, width, _ = self.program.rectangle()
        row = top + view_top(self.program.picture())
        self.screen.xdotool("mousemove", left + 20, row + 8, "mousedown", 1,
                            "mousemove", left + width // 2, row + LINES // 2,
                            "mousemove", left + width - SCROLL_BAR, row + LINES, "mouseup", 1)
        return letters(html.unescape(copied(self.program)))

    def assert_places(self, words):
        """Where the book opens, then the bookmarks, chosen from the menu as they stand there."""
        *marks, last = words
        self.assertIn(last, self.top())
        for number, mark in enumerate(marks):
            self.choose_mark(number, len(marks))
            self.assertIn(mark, self.top())

    def choose_mark(self, number, count):
        before = settled_strip(self.program)
        self.program.open_menu("b")
        self.program.key(*["Up"] * (count - number), "Return")
        wait_for(lambda: not self.program.popups(), "the menu to close")
        wait_for(lambda: not settled_strip(self.program).looks_like(before), "the bookmark")

    def test_rich_text_in_its_place_and_text_again(self):
        words = self.read_and_mark()
        self.put(RICH)
        self.start()
        self.assert_places(words)
        self.program.close()
        self.put(TEXT)
        self.start()
        self.choose_mark(0, 3)
        self.program.close()
        self.assertEqual(self.words()[:-1], words[:-1])

    def test_source_of_a_page_in_its_place(self):
        """A book of text stays one, whatever its file holds."""
        words = self.read_and_mark()
        self.put(PAGE)
        self.start()
        self.assert_places(words)
        self.program.close()


if __name__ == "__main__":
    main()
