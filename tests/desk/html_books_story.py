"""Real HTML books: read on to the middle, zoomed, coloured, marked, searched, named, copied, and found again
as they were left."""
from harness.clipboard import copied
from harness.html_story import HtmlStory
from harness.story import main
from harness.wait import wait_for

PATIENCE = 120  # seconds: a book of 4 MB is laid out anew for each step of the zoom
MARK_LENGTH = 80
BACKGROUND, BACKGROUND_NUMBER = "#ffe0c0", 0xC0E0FF  # the record has blue, green, red
KEPT = ("FontSize", "BackColor", "Marks", "Charset", "LastPos")


class HtmlBooks(HtmlStory):
    def open_real(self, name):
        self.book = self.real_book(name)
        self.program = self.reader()
        self.program.start(self.book)
        return self.wait_for_title()

    def wait_for_title(self, *others):
        """The document's own, which the window shows once the page is there, in place of others."""
        start = "Norvaset [Default] - "
        others = [start + other for other in (self.book, *others)]
        wait_for(lambda: self.program.title().startswith(start) and
                 self.program.title() not in others, "the page", PATIENCE)
        return self.program.title().removeprefix(start)

    def page(self):
        """What is seen of the page, once it stays; the first lines of a book may be empty."""
        last = None

        def same_again():
            nonlocal last
            whole = self.program.picture()
            before, last = last, whole.crop(0, 40, whole.width, whole.height - 40)
            return before and last.looks_like(before)
        wait_for(same_again, "a picture that stays", PATIENCE)
        return last

    def wait_for_another(self, before, what):
        wait_for(lambda: not self.page().looks_like(before), what, PATIENCE)

    def pages_on(self, pages):
        before = self.page()
        while pages > 0:
            self.program.key(*["Next"] * min(pages, 20))
            pages -= 20
        self.wait_for_another(before, "other lines")

    def zoom(self, step):
        before = self.page()
        self.program.key("ctrl+plus")
        wait_for(lambda: self.program.data().records()[0]["FontSize"] == str(step), "the step")
        self.wait_for_another(before, "larger letters")

    def color_background(self):
        self.pick_background(self.program, BACKGROUND)
        wait_for(lambda: self.program.picture().pixel(5, 300).hex() == BACKGROUND[1:], "the colour",
                 PATIENCE)

    def marks(self):
        return [mark for mark in self.program.data().records()[0]["Marks"].split("|") if mark]

    def define(self):
        before = len(self.marks())
        self.program.key("ctrl+d")
        wait_for(self.program.popups, "the Bookmark menu", PATIENCE)
        self.program.close_menu()
        wait_for(lambda: len(self.marks()) == before + 1, "a mark more")

    def read(self, name, pages, searched):
        title = self.open_real(name)
        self.pages_on(pages)
        for step in (1, 2):
            self.zoom(step)
        self.color_background()
        for _ in range(3):
            self.pages_on(3)
            self.define()
        marks = self.marks()
        self.assertEqual([mark.split(",")[1] for mark in marks], [str(MARK_LENGTH)] * 3)
        self.find(searched)
        wait_for(lambda: copied(self.program) == searched, "the place found", PATIENCE)
        source = copied(self.program, "o", opening=lambda: self.program.open_menu("e"))
        self.assertIn(searched, source)
        self.choose("e", "s")
        self.program.wait_for_book(searched)
        self.choose("b", "Up", "Return")  # to the last mark, in the middle of the book
        wait_for(lambda: len(copied(self.program)) == MARK_LENGTH, "the mark to be selected", PATIENCE)
        self.pages_on(1)
        strip = self.lines_on_top(self.program)
        self.program.close()
        left = self.book_record(self.program, self.book)
        self.assertEqual((left["FontSize"], left["BackColor"], left["Title"]),
                         ("2", str(BACKGROUND_NUMBER), searched))

        self.program.start()
        self.assertEqual(self.wait_for_title(searched), title)  # the document's at every load
        self.wait_for_place(self.program, strip)
        self.assertEqual(self.marks(), marks)
        self.program.close()
        again = self.book_record(self.program, self.book)
        self.assertEqual({key: again[key] for key in KEPT}, {key: left[key] for key in KEPT})

    def test_a_novel_of_4_megabytes(self):
        self.read("htm/War and Peace.htm", 300, "Prince Andrew")

    def test_essays_with_hundreds_of_pictures(self):
        self.read("htm/essays/16351-h.htm", 40, "Beethoven")


if __name__ == "__main__":
    main()
