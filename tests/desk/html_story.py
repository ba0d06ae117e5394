"""An HTML book: read on, marked, searched, copied, and found again as it was left."""
from harness import books
from harness.clipboard import copied
from harness.html_story import HtmlStory, paragraphs, write_page
from harness.story import main
from harness.text_view import settled_strip
from harness.wait import wait_for

COUNT = 800
MARK_LENGTH = 80
SEARCHED = "a Zephyr from the west"
BACKGROUND = "#ffe0c0"
BACKGROUND_NUMBER = 0xC0E0FF  # as the record has it: blue, green, red


class Html(HtmlStory):
    def setUp(self):
        self.lines = [" ".join(line.split()) for line in books.lines("latin", COUNT)]
        self.lines[600] = SEARCHED
        self.text = "\n".join(self.lines)
        self.book = write_page(self.path("lanterns.htm"), paragraphs(self.lines))
        self.program = self.open(self.book, "Lanterns")

    def click(self, x, y):
        left, top, _, _ = self.program.rectangle()
        self.screen.xdotool("mousemove", left + x, top + y, "click", 1)

    def marks(self):
        return [tuple(map(int, mark.split(",")))
                for mark in self.record(self.program, self.book)["Marks"].split("|") if mark]

    def define(self, pages):
        """Goes some pages on and marks a place that was clicked at."""
        before = len(self.marks())
        self.program.press("Next", pages)
        self.program.key("Escape")
        settled_strip(self.program)
        self.click(200 + 30 * before, 300)  # elsewhere: two clicks at one place select a word
        self.program.finish_keys()
        self.program.key("Escape")
        self.program.key("ctrl+d")
        wait_for(self.program.popups, "the Bookmark menu")
        self.program.close_menu()
        wait_for(lambda: len(self.marks()) == before + 1, "a mark more")

    def test_one_escape_leads_back_to_the_page(self):
        """From the menu that the program opens over a new mark."""
        self.define(2)
        strip = settled_strip(self.program)
        self.program.key(*["Down"] * 5)  # the bar would open a menu by it
        wait_for(lambda: not settled_strip(self.program).looks_like(strip), "the page to scroll")
        self.assertEqual(self.program.popups(), [])
        self.program.close()

    def background(self):
        return self.program.picture().pixel(5, 300).hex()

    def test_left_and_found_again(self):
        self.program.key("ctrl+plus", "ctrl+plus")
        self.pick_background(self.program, BACKGROUND)
        wait_for(lambda: self.background() == BACKGROUND[1:], "the page's colour")
        for pages in (3, 4, 5):
            self.define(pages)
        marks = self.marks()
        for start, length in marks:
            self.assertEqual(length, MARK_LENGTH)
        self.program.press("Next", 3)
        self.program.key("Escape")
        strip = self.lines_on_top(self.program)
        self.program.close()
        left = self.book_record(self.program, self.book)
        self.assertGreater(left["LastPos"], 3000)
        self.assertEqual(left["FontSize"], "2")
        self.assertEqual(left["BackColor"], str(BACKGROUND_NUMBER))

        self.program.start()
        self.program.wait_for_book("Lanterns")
        self.wait_for_place(self.program, strip)
        self.assertEqual(self.background(), BACKGROUND[1:])
        self.assertEqual(self.marks(), marks)
        self.program.close()
        again = self.book_record(self.program, self.book)
        for name in ("FontSize", "BackColor", "Marks", "Title", "Charset", "LastPos"):
            self.assertEqual(again[name], left[name], name)

    def letters(self):
        """The colour of the first line that differs most from the background's."""
        strip, paper = settled_strip(self.program), int(self.background(), 16) & 0xff
        return max(strip.pixels, key=lambda value: abs(value - paper))

    def test_letters_can_be_read_at_night(self):
        self.assertEqual(self.letters(), 0)
        self.pick_background(self.program, "#101010")
        wait_for(lambda: self.background() == "101010", "the page's colour")
        wait_for(lambda: self.letters() == 255, "white letters")
        self.pick_background(self.program, "#fffff0")
        wait_for(lambda: self.background() == "fffff0", "the page's colour")
        wait_for(lambda: self.letters() == 0, "black letters")
        self.program.close()

    def test_marks_are_walked_through(self):
        for pages in (2, 3, 4):
            self.define(pages)
        keys = (["Up"] * 3 + ["Return"], ["x"], ["x"])
        for (start, length), way in zip(self.marks(), keys):
            self.choose("b", *way)
            shown = copied(self.program)
            self.assertEqual(shown, self.text[start:start + length])
        self.program.close()

    def test_find_caption_and_source(self):
        self.find("zephyr")
        self.assertEqual(copied(self.program), "Zephyr")
        source = copied(self.program, "o", opening=lambda: self.program.open_menu("e"))
        self.assertEqual(source, "<p>Zephyr</p>")
        self.choose("e", "s")
        self.program.wait_for_book("Zephyr")
        self.program.close()
        record = self.book_record(self.program, self.book)
        self.assertEqual(record["Title"], "Zephyr")
        self.assertGreater(record["LastPos"], 5000)
        self.open(self.book, "Lanterns", self.program)  # the document's title at every load
        self.program.close()

    def test_all_of_it(self):
        self.program.key("ctrl+a")
        self.assertEqual(copied(self.program), self.text)
        self.program.close()

    def test_wheel_with_ctrl(self):
        left, top, width, height = self.program.rectangle()
        self.screen.xdotool("mousemove", left + width // 2, top + height // 2, "keydown", "ctrl",
                            "click", "--repeat", 3, "--delay", 10, 4, "keyup", "ctrl")
        wait_for(lambda: self.record(self.program, self.book)["FontSize"] == "3", "three steps")
        self.program.key("ctrl+KP_Subtract", "ctrl+0", "ctrl+KP_Add")
        wait_for(lambda: self.record(self.program, self.book)["FontSize"] == "1", "one step")
        self.program.close()

    def test_keys_after_a_menu_was_left(self):
        self.program.finish_keys()  # the bar has the keyboard now, but for keys that are none of its
        strip = settled_strip(self.program)
        self.program.key("Next")
        wait_for(lambda: not settled_strip(self.program).looks_like(strip), "the next page")
        self.program.finish_keys()
        strip = settled_strip(self.program)
        self.program.key("ctrl+plus")
        wait_for(lambda: not settled_strip(self.program).looks_like(strip), "larger letters")
        self.program.close()
        self.assertEqual(self.book_record(self.program, self.book)["FontSize"], "1")

    def test_context_menu(self):
        left, top, _, _ = self.program.rectangle()
        self.screen.xdotool("mousemove", left + 200, top + 300, "click", 3)
        wait_for(self.program.popups, "the page's menu")
        self.program.key("a")
        wait_for(lambda: not self.program.popups(), "the menu to close")
        self.assertEqual(copied(self.program), self.text)
        self.program.close()


if __name__ == "__main__":
    main()
