"""The book alone on the screen, by F11."""
from harness import books
from harness.screen import SIZE
from harness.story import Story, main
from harness.text_view import settled_strip, wait_for_strip, view_top
from harness.wait import wait_for
from harness.wine import ON_WINE

WHOLE_SCREEN = (0, 0, *SIZE)
EDGE = 12  # pixels; a menu bar is higher


class FullScreen(Story):
    def setUp(self):
        book = books.write_book(self.path("book.txt"), books.lines("latin", 300))
        self.program = self.reader().start(book)
        self.program.wait_for_book(book)
        self.program.wait_until_settled()
        self.program.resize(700, 500)
        self.program.finish_keys()
        self.window = self.program.rectangle()

    def wait_for_rectangle(self, rectangle):
        wait_for(lambda: self.program.rectangle() == rectangle,
                 f"the window to be at {rectangle}, not {self.program.rectangle()}")

    def enter(self):
        self.program.key("F11")
        self.wait_for_rectangle(WHOLE_SCREEN)
        wait_for(lambda: not self.menu_bar(), "the menu bar to go")

    def menu_bar(self):
        """Whether one lies above the book, or over its first lines."""
        top = view_top(self.program.picture())
        return top is not None and top > EDGE

    def stored(self):
        data = self.program.data()
        return [data.value("Default", key) for key in ("Left", "Top", "Width", "Height", "State")]

    def test_there_and_back(self):
        strip = settled_strip(self.program)
        for back in ("F11", "Escape"):
            with self.subTest(back=back):
                self.enter()
                self.program.key(back)
                self.wait_for_rectangle(self.window)
                wait_for_strip(self.program, strip)
        self.program.close()

    def test_menu(self):
        """Alt and a letter or the mouse at the upper edge bring it; Escape closes it first."""
        self.enter()
        self.program.open_menu("v")
        self.program.close_menu()
        if not ON_WINE:
            self.program.key("Escape")  # leaves the bar, which the first one leads back to
        wait_for(lambda: not self.menu_bar(), "the menu bar to go")
        self.assertEqual(self.program.rectangle(), WHOLE_SCREEN)
        self.screen.xdotool("mousemove", 600, 300)
        self.screen.xdotool("mousemove", 600, 2)
        wait_for(self.menu_bar, "the menu bar")
        self.screen.xdotool("mousemove", 600, 300)
        wait_for(lambda: not self.menu_bar(), "the menu bar to go")
        self.program.key("Escape")
        self.wait_for_rectangle(self.window)
        self.program.close()

    def test_next_start_is_a_window(self):
        self.program.close()
        before = self.stored()
        self.program.start()
        self.program.wait_until_settled()
        self.wait_for_rectangle(self.window)
        self.program.finish_keys()
        self.enter()
        self.program.close()
        self.assertEqual(self.stored(), before)
        self.program.start()
        self.wait_for_rectangle(self.window)
        self.program.close()


if __name__ == "__main__":
    main()
