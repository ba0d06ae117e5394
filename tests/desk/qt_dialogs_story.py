"""The dialogs that Qt draws, by their own widgets: keys and mouse."""
import unittest

from harness import books
from harness.clipboard import copied
from harness.dialog import Dialog
from harness.story import Story, main
from harness.wait import wait_for
from harness.words import can_read, place_of, words_shown

GREEK = "161"  # the number of the character set
# Points of the dialogs, from the right and lower edges where negative.
OK = -137, -24
SIZE_UP, STRIKEOUT = (-19, 81), (69, 117)
FIRST_SWATCH = 24, 46  # black
MATCH_CASE, FIND = (18, -58), (-137, -24)


class Dialogs(Story):
    def setUp(self):
        lines = [*books.lines("latin", 300), "The Miller himself"]
        self.book = books.write_book(self.path("lanterns.txt"), lines)
        self.program = self.reader().start(self.book)
        self.program.wait_for_book(self.book)

    def open(self, letter, title):
        self.program.open_menu("v")
        return Dialog(self.program, title, letter)

    def wait_for_end(self, dialog):
        wait_for(lambda: not self.program.window_exists(dialog.window), "the dialog to close")
        wait_for(self.program.is_active, "the reader to have the keyboard again")

    def record_after_closing(self):
        self.program.close()
        return self.book_record(self.program, self.book)

    def click_in(self, dialog, x, y):
        """At this point of the dialog; from its right or lower edge where negative."""
        text = self.screen.xdotool("getwindowgeometry", "--shell", dialog.window)
        at = dict(line.split("=") for line in text.split())
        x, y = x % int(at["WIDTH"]), y % int(at["HEIGHT"])
        self.screen.xdotool("mousemove", "--window", dialog.window, x, y, "click", 1)

    def test_font_and_script_by_keys(self):
        font = self.open("f", "Font...")
        font.key("alt+z", "ctrl+a", "2", "0", "alt+s", "b", "alt+u", "alt+r", "g", "r")
        font.close()
        record = self.record_after_closing()
        shown = {name: record[name] for name in ("FontSize", "Bold", "Underline", "Charset")}
        self.assertEqual(shown, {"FontSize": "20", "Bold": "1", "Underline": "1", "Charset": GREEK})

    def test_font_by_mouse(self):
        font = self.open("f", "Font...")
        self.click_in(font, *SIZE_UP)
        self.click_in(font, *STRIKEOUT)
        self.click_in(font, *OK)
        self.wait_for_end(font)
        record = self.record_after_closing()
        self.assertEqual((record["FontSize"], record["Strikethru"]), ("13", "1"))

    def test_find_options_by_mouse(self):
        find = Dialog(self.program, "Find", "ctrl+f")
        find.type("Miller")
        self.click_in(find, *MATCH_CASE)
        self.click_in(find, *FIND)
        self.wait_for_end(find)
        self.assertEqual(copied(self.program), "Miller")  # without it, one of the lines before
        self.program.close()

    @unittest.skipUnless(can_read(), "the words cannot be read")
    def test_lines_of_about_at_a_large_scale(self):
        self.program.close()
        self.program.variables = {"QT_SCALE_FACTOR": "2"}
        self.program.start(self.book)
        self.program.wait_for_book(self.book)
        self.program.open_menu("h")
        about = Dialog(self.program, "About Norvaset", "a")

        def height_of(word):
            found = place_of(self.screen, about.window, word)
            return found and found[1]
        first = wait_for(lambda: height_of("Reader"), "the first line")
        last = wait_for(lambda: height_of("books"), "its last word")
        self.assertLess(abs(first - last), 10)  # of some 34 that a line is high
        about.close("Escape")
        self.program.close()

    @unittest.skipUnless(can_read(), "the words cannot be read")
    def test_columns_of_the_files_can_be_read(self):
        dialog = Dialog(self.program, "Open File", "ctrl+o")
        wait_for(lambda: "plaintextdocument" in words_shown(self.screen, dialog.window),
                 "the whole type of a file")
        dialog.close("Escape")
        self.program.close()

    def test_font_given_up(self):
        font = self.open("f", "Font...")
        font.key("alt+z", "ctrl+a", "3", "0")
        font.close("Escape")
        self.assertEqual(self.record_after_closing()["FontSize"], "12")

    def test_colour_by_mouse(self):
        colour = self.open("b", "Background Color...")
        self.click_in(colour, *FIRST_SWATCH)
        self.click_in(colour, *OK)
        self.wait_for_end(colour)
        self.assertEqual(self.record_after_closing()["BackColor"], "0")

    def test_colour_by_keys(self):
        colour = self.open("b", "Background Color...")
        colour.key("alt+h", "ctrl+a")
        colour.type("#ffe0c0")
        colour.close()
        self.assertEqual(self.record_after_closing()["BackColor"], str(0xC0E0FF))


if __name__ == "__main__":
    main()
