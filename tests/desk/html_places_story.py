"""A page whose pixels have changed their meaning: reading place and bookmarks stay at their words."""
import os
import re
import shutil
import signal
import unittest

from harness.clipboard import copied
from harness.data_file import data_file_bytes
from harness.html_story import MODULE, OWN_VIEW, HtmlStory, first_line, paragraphs, write_page
from harness.story import main
from harness.text_view import MARGIN_X, SCROLL_BAR, settled_strip, top_strip, view_top
from harness.wait import wait_for
from harness.wine import ON_WINE

ADDED = "<p>A chapter that nobody had missed until now.</p>"
SOON = 6   # seconds for a copy, before the line is selected anew
TALL = 70  # pixels: more than a line and a half, so that one of it is whole


class HtmlPlaces(HtmlStory):
    def setUp(self):
        """Each word stands once, and other lines break elsewhere in another width."""
        words = [f"word{number}" for number in range(10000, 22000)]
        self.lines = [" ".join(words[at:at + 40]) for at in range(0, len(words), 40)]
        self.book = write_page(self.path("lanterns.htm"), paragraphs(self.lines))
        self.program = self.open(self.book, "Lanterns")

    def top_words(self):
        """Of the first whole line, copied as a reader copies it. By clicks: the engine scrolls what is
        dragged so near to the edge, when the mouse is held for long."""
        program = self.program
        settled_strip(program)
        picture = program.picture()
        strip = top_strip(picture, TALL)
        if not strip:
            return []  # it is loaded again just now
        top, bottom = first_line(strip)
        left, upper, width, _ = program.rectangle()
        y = upper + view_top(picture) + (top + bottom) // 2
        program.activate()
        program.click(left + width // 2, y + 300)  # what is selected would be dragged
        self.screen.xdotool("mousemove", left + MARGIN_X - 4, y, "click", 1, "keydown", "shift",
                            "mousemove", left + width - SCROLL_BAR - 4, y, "click", 1, "keyup", "shift")
        try:
            return re.findall(r"word\d{5}", copied(program, deadline=SOON))
        except AssertionError:
            return []  # the page was loaded again behind the selecting

    def define(self):
        self.program.key("ctrl+d")
        wait_for(self.program.popups, "the Bookmark menu")
        self.program.close_menu()

    def read_and_mark(self):
        """A bookmark at a line that was on top, and a place after it."""
        self.program.press("Next", 6)
        marked = wait_for(self.top_words, "a line")
        self.define()
        self.program.press("Next", 5)
        return marked, wait_for(self.top_words, "a line")

    def go_to_bookmark(self, from_last=0):
        self.program.open_menu("b")
        self.program.key("Up", *["Up"] * from_last, "Return")
        wait_for(lambda: not self.program.popups(), "the menu to close")

    def go_to_bookmark_at(self, words):
        """Once the page is there: its bookmarks come into the menu with it."""
        def goes_there():
            self.go_to_bookmark()
            return words[0] in self.top_words()
        wait_for(goes_there, f"{words[0]} on top, by the bookmark")

    def read_to_a_line(self):
        """One that is whole at the top."""
        marked, _ = self.read_and_mark()
        self.go_to_bookmark()
        self.assert_at(marked)
        return self.top_words()

    def set_width(self, pixels):
        """Of the next window, as on another screen."""
        with open(self.program.data_path, "rb") as file:
            data = file.read()
        with open(self.program.data_path, "wb") as file:
            file.write(re.sub(rb"(?m)^Width=[\d.]+", b"Width=%d" % pixels, data))

    def start_again(self, title="Lanterns"):
        self.program.start()
        self.program.wait_for_book(title)

    def assert_at(self, words):
        """The line on top is the one in which the words begin."""
        wait_for(lambda: words[0] in self.top_words(), f"{words[0]} on top")

    def test_another_width_and_back(self):
        words = self.read_to_a_line()
        self.program.close()
        place = self.book_record(self.program, self.book)["LastPos"]
        width = float(self.program.data().value("Default", "Width"))
        self.set_width(width - 250)
        self.start_again()
        self.assert_at(words)
        self.program.close()
        self.set_width(width)
        self.start_again()
        self.assert_at(words)
        self.program.close()
        self.assertAlmostEqual(self.book_record(self.program, self.book)["LastPos"], place, delta=2)

    def test_back_to_the_last_place_in_another_width(self):
        marked, _ = self.read_and_mark()
        self.define()
        self.go_to_bookmark(from_last=1)
        self.assert_at(marked)
        self.go_to_bookmark()
        _, _, width, height = self.program.rectangle()
        self.program.resize(width - 250, height)
        self.program.key("alt+F2")
        self.assert_at(marked)
        self.program.close()

    @unittest.skipIf(OWN_VIEW, "there is no other view")
    def test_in_the_other_view(self):
        words = self.read_to_a_line()
        self.program.close()
        os.remove(os.path.join(self.program.folder, MODULE))
        self.start_again()
        self.assert_at(words)
        self.program.close()

    def editors_window(self):
        name = os.path.basename(self.book)
        found = self.screen.xdotool("search", "--onlyvisible", "--class", "mousepad").split()
        return next((window for window in found
                     if name in self.screen.xdotool("getwindowname", window)), None)

    def source(self):
        with open(self.book, encoding="utf-8") as file:
            return file.read()

    def use_mousepad(self):
        mousepad = shutil.which("mousepad")
        if not mousepad:
            self.skipTest("mousepad is not installed")
        self.program.close()
        editor = self.path("editor")
        with open(editor, "w", encoding="ascii") as file:  # which complains on some of its ends
            file.write(f'#!/bin/sh\nexec {mousepad} "$@" 2>/dev/null\n')
        os.chmod(editor, 0o755)
        with open(self.program.data_path, "wb") as file:
            file.write(data_file_bytes() + f"[fwMain]\r\nmOptionsEditor-2={editor}\r\n".encode())
        self.program.start(self.book)
        self.program.wait_for_book("Lanterns")

    def type_in_editor(self, text):
        """In the body's first line."""
        self.program.open_menu("f")
        self.program.key("e")
        window = wait_for(self.editors_window, "the editor's window with the page")
        self.screen.xdotool("windowactivate", window)
        wait_for(lambda: self.screen.xdotool("getwindowfocus").strip() == window or
                 self.screen.xdotool("getactivewindow").strip() == window, "the editor in front")
        self.screen.xdotool("key", "ctrl+Home", "Down", "Down", "Down")
        self.screen.xdotool("type", "--delay", 10, text)
        self.screen.xdotool("key", "Return", "ctrl+s")
        wait_for(lambda: text in self.source(), "the editor to save")
        os.kill(int(self.screen.xdotool("getwindowpid", window)), signal.SIGTERM)

    @unittest.skipIf(ON_WINE, "there the default for pages is no editor")
    def test_edited_in_the_editor(self):
        """It is shown again by itself; F5 and another start find the same words."""
        self.use_mousepad()
        marked, words = self.read_and_mark()
        before = self.program.rectangle()
        strip = settled_strip(self.program)
        self.type_in_editor(ADDED * 3)
        self.program.activate()
        self.assertEqual(self.program.rectangle(), before)
        self.wait_for_place(self.program, strip)
        self.assert_at(words)
        self.program.key("F5")
        self.go_to_bookmark_at(marked)
        self.program.close()
        self.start_again()
        self.assert_at(marked)
        self.program.close()

    def test_shown_again_by_itself_when_another_program_writes_it(self):
        marked, words = self.read_and_mark()
        strip = settled_strip(self.program)
        write_page(self.book + ".new", ADDED * 30 + paragraphs(self.lines), title="Lanterns anew")
        os.replace(self.book + ".new", self.book)
        self.program.wait_for_book("Lanterns anew")
        self.wait_for_place(self.program, strip)
        self.assert_at(words)
        with open(self.book, "w", encoding="utf-8"):
            pass  # as some programs begin to write
        write_page(self.book, ADDED * 9 + paragraphs(self.lines), title="Lanterns once more")
        self.program.wait_for_book("Lanterns once more")
        self.wait_for_place(self.program, strip)
        self.go_to_bookmark()
        self.assert_at(marked)
        self.program.close()

    def mark_in_shelf(self, name, lines):
        """Opened, read on, marked and closed; the words of its bookmark and of its place."""
        self.book = write_page(self.path(os.path.join("shelf", name)), paragraphs(lines))
        self.program.start(self.book)
        self.program.wait_for_book("Lanterns")
        words = self.read_and_mark()
        self.program.close()
        return words

    def test_a_folder_that_was_renamed_comes_back_whole(self):
        self.program.close()
        os.remove(self.book)
        os.mkdir(self.path("shelf"))
        marked, _ = self.mark_in_shelf("one.htm", self.lines)
        _, words = self.mark_in_shelf("two.htm", self.lines[1:])
        moved = self.path("new shelf")
        os.rename(self.path("shelf"), moved)
        self.program.start(os.path.join(moved, "two.htm"))
        self.program.wait_for_book("Lanterns")
        self.assert_at(words)
        self.program.open_menu("f")  # looks for the others
        self.program.close_menu()
        self.program.close()
        self.assertEqual(self.program.data().paths()[:2],
                         [os.path.join(moved, name) for name in ("two.htm", "one.htm")])
        self.program.start(os.path.join(moved, "one.htm"))
        self.program.wait_for_book("Lanterns")
        self.go_to_bookmark_at(marked)
        self.program.close()


if __name__ == "__main__":
    main()
