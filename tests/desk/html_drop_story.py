"""Files dropped on a page open as on a text; what is dragged in the page itself leads nowhere."""
import os
import urllib.parse

from harness import books
from harness.drag import drop, needs_drag_source
from harness.html_story import HtmlStory, needs_engine, paragraphs, write_page
from harness.story import main
from harness.wait import wait_for
from harness.wine import ON_WINE

LINES = 100
PICTURE = ('<svg xmlns="http://www.w3.org/2000/svg" width="300" height="150">'
           '<rect width="300" height="150" fill="#ff0000"/></svg>')
BODY = ('<p style="margin:0;font-size:80px"><a href="other.htm">a link to somewhere</a></p>'
        '<img src="picture.svg">')
LINK, IMAGE, TEXT = (300, 70), (100, 180), (100, 400)  # points in the window


@needs_drag_source
class HtmlDrop(HtmlStory):
    def setUp(self):
        with open(self.path("picture.svg"), "w", encoding="ascii") as file:
            file.write(PICTURE)
        self.other = write_page(self.path("other.htm"), "<p>other</p>", "Other")
        self.book = write_page(self.path("book.htm"),
                               BODY + paragraphs(books.lines("latin", LINES)))
        self.program = self.open(self.book, "Lanterns")

    def address(self, path):
        return ("file://" + urllib.parse.quote(path)).encode()

    def test_one_kind_after_the_other(self):
        text = books.write_book(self.path("text.txt"), books.lines("latin", LINES))
        rich = books.write_rtf_book(self.path("rich.rtf"), books.lines("latin", LINES))
        for path, title in ((text, text), (self.book, "Lanterns"), (rich, rich),
                            (self.book, "Lanterns"), (self.other, "Other")):
            with self.subTest(path=path):
                drop(self, self.address(path))
                self.program.wait_for_book(title)
        self.program.close()
        self.assertEqual(self.program.data().paths(), [self.other, self.book, rich, text])

    def test_the_first_of_several(self):
        text = books.write_book(self.path("text.txt"), books.lines("latin", LINES))
        drop(self, self.address(self.other), self.address(text))
        self.program.wait_for_book("Other")
        self.program.close()
        self.assertEqual(self.program.data().paths(), [self.other, self.book])

    def test_what_cannot_be_opened(self):
        for path in (self.path("missing.htm"), self.folder):
            with self.subTest(path=path):
                drop(self, self.address(path))
                if ON_WINE:  # it brings the program to the front, but does not ask the window manager to
                    self.screen.xdotool("windowactivate", self.program.wait_for_message())
                self.program.answer_message("Escape")
        drop(self, b"https://norvaset.example/book.htm")
        self.assert_stays()

    def assert_stays(self):
        """The page is still the same one, and answers."""
        self.program.activate()
        self.program.finish_keys()
        self.program.key("Escape")
        self.assertFalse(self.program.message_box())
        self.assertTrue(self.whole_text(self.program).startswith("a link to somewhere"))
        self.assertIn("Lanterns", self.program.title())
        self.program.close()
        self.assertEqual(self.program.data().paths(), [self.book])

    @needs_engine
    def test_a_link_and_a_picture_dragged_within_the_page(self):
        for place in (LINK, IMAGE):
            with self.subTest(place=place):
                self.drag_within(*place)
        self.assert_stays()

    @needs_engine
    def test_text_dragged_within_the_page(self):
        self.whole_text(self.program)
        self.drag_within(*TEXT)
        self.assert_stays()

    def drag_within(self, x, y):
        left, top, _, _ = self.program.rectangle()
        self.screen.xdotool("mousemove", left + x, top + y, "mousedown", 1)
        for step in range(1, 31):
            self.screen.xdotool("mousemove", left + x + 10 * step, top + y + 10 * step)
        wait_for(self.is_dragging, "the drag")
        self.screen.xdotool("mouseup", 1)
        wait_for(lambda: not self.is_dragging(), "the drop")

    def is_dragging(self):
        """The picture of what is dragged is a window of the program's own, under the mouse."""
        return bool(self.program.popups())


if __name__ == "__main__":
    main()
