"""A text whose lines were broken for a page: they flow on, and the file stays what it is."""
from harness import books
from harness.clipboard import copied
from harness.coming_back import ComingBack
from harness.dialog import Dialog
from harness.story import main
from harness.text_view import settled_strip, wait_for_strip
from harness.wait import wait_for

PAGE = 66  # letters
SECTION = "Default\\"
VERSE = ["the lamps along the river", "are burning all the night"]


def page_lines(text):
    """Broken as a typewriter does."""
    lines = [""]
    for word in text.split():
        if lines[-1] and len(lines[-1]) + 1 + len(word) > PAGE:
            lines.append("")
        lines[-1] += (" " if lines[-1] else "") + word
    return lines


class Unwrap(ComingBack):
    def setUp(self):
        self.lines = []
        for paragraph in books.long_paragraphs("latin", 300):
            self.lines += [*page_lines(paragraph), "", *VERSE, ""]
        self.book = books.write_book(self.path("quay.txt"), self.lines)
        self.program = self.reader()

    def start(self, width):
        self.prepare(self.program, self.book, width=width)
        self.program.start()
        self.program.wait_for_book(self.book)

    def line_of_caret(self):
        """The line on the screen, as it is copied, with one line feed for each line end."""
        self.program.key("Home", "shift+End")
        return copied(self.program).replace("\r\n", "\n")

    def go_to_top(self):
        self.program.key("ctrl+Home")

    def test_by_key_and_context_menu(self):
        # The first line of a screen that has the end of a line of the file in it.
        for width, line in ((420, 1), (1200, 0)):
            with self.subTest(width=width):
                self.start(width)
                plain = settled_strip(self.program)
                self.program.key("ctrl+shift+u")
                wait_for(lambda: not settled_strip(self.program).looks_like(plain), "another look")
                self.program.key("ctrl+Home", *["Down"] * line)
                shown = self.line_of_caret()
                self.assertIn(shown, "\n".join(self.lines))  # as the file has it
                self.assertEqual(shown.count("\n"), 1)

                self.go_to_top()
                self.program.key("shift+F10")
                wait_for(self.program.popups, "the context menu")
                self.program.key("u")
                wait_for_strip(self.program, plain)
                self.program.close()

    def test_kept_with_the_book_and_found_in_it(self):
        self.start(760)
        self.program.key("ctrl+shift+u")
        self.program.press("Next", 9)
        strip = settled_strip(self.program)
        self.program.close()
        place = self.book_record(self.program, self.book)["LastPos"]
        section = SECTION + self.program.shown_path(self.book)
        self.assertEqual(self.program.data().value(section, "Unwrap"), "1")

        self.program.start()
        self.program.wait_for_book(self.book)
        wait_for_strip(self.program, strip)
        dialog = Dialog(self.program, "Find", "ctrl+f")
        dialog.type(VERSE[0])
        dialog.close()
        wait_for(lambda: copied(self.program) == VERSE[0], "the verse")
        self.program.key("Home", "shift+End")
        wait_for(lambda: copied(self.program) == VERSE[0], "a verse that is a line of its own")
        self.program.key("ctrl+shift+u")
        self.program.finish_keys()
        self.program.close()
        self.assertEqual(self.program.data().value(section, "Unwrap"), "0")
        self.assertNotEqual(self.book_record(self.program, self.book)["LastPos"], place)


if __name__ == "__main__":
    main()
