"""A page that changes between the browser view and our own, at the same words, for its book alone."""
from harness.clipboard import copied
from harness.engine import engine, pages
from harness.html_story import HtmlStory, needs_engine, write_page
from harness.story import main
from harness.text_view import MARGIN_X, settled_strip, view_top
from harness.wait import wait_for

WORDS, IN_PARAGRAPH = 12_000, 60
LINE = 20  # words, more than one holds
SECTION = "Default\\"
LEFT = 12  # pixels, in the first letter of a line


def numbered(count):
    words = [f"w{i:05}" for i in range(count)]
    return "".join(f"<p>{' '.join(words[i:i + IN_PARAGRAPH])}</p>\n"
                   for i in range(0, count, IN_PARAGRAPH))


@needs_engine
class HtmlViews(HtmlStory):
    def setUp(self):
        self.book = write_page(self.path("lanterns.htm"), numbered(WORDS))
        self.program = self.open(self.book, "Lanterns")

    def first_line(self):
        """The row of the window that the first line which is not cut is on."""
        picture = self.program.picture()
        top = view_top(picture)
        view = picture.crop(MARGIN_X, top, picture.width // 2, picture.height - 60)
        plain = [view.crop(0, y, view.width, y + 1).is_plain() for y in range(view.height)]
        return top + 5 + next(y for y in range(1, view.height) if plain[y - 1] and not plain[y])

    def top_word(self):
        """The number of the first word, which is clicked at twice."""
        settled_strip(self.program)
        left, top, _, _ = self.program.rectangle()
        self.screen.xdotool("mousemove", left + LEFT, top + self.first_line(), "click",
                            "--repeat", 2, "--delay", 10, 1)
        return int(copied(self.program).strip().removeprefix("w"))

    def setting(self):
        section = SECTION + self.program.shown_path(self.book)
        return self.program.data().value(section, "PageView")

    def wait_for_own(self):
        wait_for(lambda: not pages(self.program), "the browser's page to go")
        wait_for(lambda: self.setting() == "1", "the choice to be kept")

    def wait_for_browser(self):
        wait_for(lambda: pages(self.program), "the browser's page")
        wait_for(lambda: self.setting() == "0", "the choice to be kept")

    def change(self):
        self.program.key("ctrl+shift+b")

    def read_on(self, count=5):
        self.program.press("Next", count)
        self.program.key("Escape")
        return self.top_word()

    def assert_near(self, word, expected):
        self.assertGreater(word, expected - LINE)
        self.assertLess(word, expected + LINE)

    def test_changed_kept_and_changed_back(self):
        word = self.read_on()
        self.assertGreater(word, 500)
        self.change()
        self.wait_for_own()
        self.assert_near(self.top_word(), word)
        self.change()
        self.wait_for_browser()
        self.assert_near(self.top_word(), word)
        strip = settled_strip(self.program)
        self.change()
        self.wait_for_own()
        self.change()
        self.wait_for_browser()
        self.wait_for_place(self.program, strip)  # there and back it does not move
        self.change()
        self.wait_for_own()
        self.program.press("Next", 3)
        strip = settled_strip(self.program)
        word = self.top_word()
        self.program.close()

        self.program.start()
        self.program.wait_for_book("Lanterns")
        self.wait_for_place(self.program, strip)
        self.assertEqual(self.top_word(), word)
        self.assertEqual(engine(self.program), [])  # no engine was loaded
        self.program.key("shift+F10")
        wait_for(self.program.popups, "the page's menu")
        self.program.key("b")
        self.wait_for_browser()
        self.assert_near(self.top_word(), word)
        self.program.key("shift+F10")
        wait_for(self.program.popups, "the browser's menu")
        self.program.key("b")
        self.wait_for_own()
        self.assert_near(self.top_word(), word)
        self.program.close()

    def test_another_book_and_another_size(self):
        other = write_page(self.path("harbour.htm"), numbered(3000), "Harbour")
        self.program.key("ctrl+plus", "ctrl+plus")
        word = self.read_on()
        self.change()
        self.wait_for_own()
        self.assert_near(self.top_word(), word)
        self.assertEqual(self.record(self.program, self.book)["FontSize"], "2")
        self.open_second(other, "Harbour")
        wait_for(lambda: pages(self.program), "the browser's page")
        self.open_second(self.book, "Lanterns")
        self.assert_near(self.top_word(), word)
        wait_for(lambda: not pages(self.program), "the other page to go")
        self.program.close()

    def open_second(self, path, title):
        """By a second start, as a file manager does it."""
        self.program.launch(path).wait(60)
        self.program.wait_for_book(title)


if __name__ == "__main__":
    main()
