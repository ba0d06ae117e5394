"""A page made larger: its size and the place in it are left and found again together."""
from harness import books
from harness.html_story import HtmlStory, needs_engine, paragraphs, write_page
from harness.story import main
from harness.text_view import settled_strip
from harness.wait import wait_for
from harness.wine import ON_WINE

LONG = 50000  # paragraphs, 20 MB: a new size of these takes the engine longer than a program needs to start
COUNT = 1500  # paragraphs of six sentences: far from the end of the time that leaving a page may take
PAGES = 20  # from its end
STEPS = 4
LARGER = ["ctrl+plus"] * STEPS


class HtmlZoom(HtmlStory):
    def setUp(self):
        lines = books.long_paragraphs("latin", COUNT)
        self.book = write_page(self.path("lanterns.htm"), paragraphs(lines))
        self.other = books.write_book(self.path("quay.txt"), books.lines("latin", 20))

    def zoom_in_the_middle(self, name):
        """A reader that knows the other book, too, and what it showed before the keys."""
        self.program = self.reader(name)
        self.program.start(self.other)
        self.program.wait_for_book(self.other)
        self.program.close()
        self.open(self.book, "Lanterns", self.program)
        top = settled_strip(self.program)
        self.program.key("ctrl+End")
        wait_for(lambda: not settled_strip(self.program).looks_like(top), "the end")
        self.program.press("Prior", PAGES)
        self.program.key("Escape")
        before = settled_strip(self.program)
        self.program.key(*LARGER)
        return before

    def size(self):
        data = self.program.data()
        return dict(zip(data.paths(), data.records()))[self.book]["FontSize"]

    def wait_for_size(self):
        wait_for(lambda: self.size() == str(STEPS), "the new size in the record")

    def close_at_once(self):
        # Under Wine the window manager's request overtakes keys that wait: so by keys, too.
        self.program.key(*["alt+f", "x"] if ON_WINE else ["alt+F4"])
        self.program.wait_for_end()

    def kill_when_stored(self):
        self.wait_for_size()
        self.program.kill()  # before anything else stores the book

    def terminate(self):
        self.program.finish_keys()
        self.program.terminate()

    def open_the_other_book(self):
        self.program.choose_book(1, 2)
        self.program.wait_for_book(self.other)
        self.program.close()

    def test_left_at_once(self):
        before = self.zoom_in_the_middle("calm")
        wait_for(lambda: not settled_strip(self.program).looks_like(before), "larger letters")
        self.wait_for_size()
        strip = self.lines_on_top(self.program)
        self.program.close()
        for leave in (self.kill_when_stored, self.close_at_once, self.terminate,
                      self.open_the_other_book):
            with self.subTest(way=leave.__name__):
                self.zoom_in_the_middle(leave.__name__)
                leave()
                self.open(self.book, "Lanterns", self.program)
                self.wait_for_place(self.program, strip)
                self.program.close()
                self.assertEqual(self.size(), str(STEPS))

    @needs_engine
    def test_another_book_while_the_page_is_left(self):
        """The end waits for the page's place; the later start is shown, by whichever program."""
        book = write_page(self.path("long.htm"), paragraphs(books.long_paragraphs("latin", LONG)))
        self.program = self.open(book, "Lanterns")
        self.program.key("Next", "ctrl+plus", "ctrl+plus", "alt+F4")
        leaving = self.program.process
        later = self.program.launch(self.other)
        wait_for(lambda: leaving.poll() is not None, "the end of the first program")
        self.program.process = later
        self.program.wait_for_window()
        self.program.wait_for_book(self.other)
        self.program.close()
        self.assertEqual(self.program.data().paths(), [self.other, book])


if __name__ == "__main__":
    main()
