"""A page of 10 MB in our own view: gone to its end, closed at once, opened again at the same lines."""
import unittest

from harness.html_story import HtmlStory, paragraphs, write_page
from harness.story import Story, main
from harness.text_view import settled_strip, top_strip
from harness.wait import wait_for
from harness.wine import ON_WINE

PARAGRAPHS = 40_000
WORDS = "lantern harbour window winter letter garden silver morning".split()


def paragraph(number):
    """Of one to twelve lines, so that nothing tells how far down it is but laying out."""
    count = 4 + number * 7919 % 90
    return f"No. {number} " + " ".join(WORDS[(number + i * i) % len(WORDS)] for i in range(count))


class LongPage(HtmlStory):
    def setUp(self):
        self.page = write_page(self.path("long.htm"), paragraphs(map(paragraph, range(PARAGRAPHS))))
        self.program = Story.reader(self)  # without an engine beside it

    def start(self):
        self.program.start(self.page)
        self.program.wait_for_book("Lanterns")
        self.program.wait_until_settled()

    def go(self, *keys):
        before = settled_strip(self.program)
        self.program.key(*keys)
        wait_for(lambda: self.strip() and not self.strip().looks_like(before), "another place")

    def strip(self):
        return top_strip(self.program.picture())

    def come_back(self):
        """Closed as soon as the place is seen, and opened again."""
        strip = self.lines_on_top(self.program)
        self.program.close()
        self.start()
        self.wait_for_place(self.program, strip)

    def test_end_and_back(self):
        self.start()
        self.go("ctrl+End")
        self.come_back()
        self.go("Prior", "Prior", "Prior")
        self.come_back()
        self.program.close()

    @unittest.skipIf(ON_WINE, "what closes a window is posted there, before keys that are waiting")
    def test_closed_at_once(self):
        """Before anything of the end is drawn: it opens at the last lines all the same."""
        self.start()
        self.go("ctrl+End")
        end = self.lines_on_top(self.program)
        self.go("ctrl+Home")
        self.program.key("ctrl+End", "alt+F4")
        self.program.wait_for_end()
        self.start()
        self.wait_for_place(self.program, end)
        self.program.close()

    def test_another_size_at_the_end(self):
        self.start()
        self.go("ctrl+End")
        self.go("ctrl+equal")
        self.go("Prior")
        self.come_back()
        wide = self.lines_on_top(self.program)
        self.program.resize(500, 600)
        wait_for(lambda: self.strip() and not self.strip().looks_like(wide), "other lines")
        self.come_back()
        self.program.close()


if __name__ == "__main__":
    main()
