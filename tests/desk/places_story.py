"""Books that are changed by other programs: the place and the bookmarks stay at their words."""
import os
import shutil
import signal

from harness import books
from harness.clipboard import copied
from harness.story import Story, main
from harness.text_view import SCROLL_BAR, STATUS_HEIGHT, settled_strip, wait_for_strip
from harness.wait import wait_for
from harness.wine import ON_WINE

ADDED = "A chapter that nobody had missed until now."


class Places(Story):
    def setUp(self):
        self.lines = books.lines("latin", 600)
        self.book = books.write_book(self.path("lanterns.txt"), self.lines)
        self.program = self.reader()

    def text(self, encoding="utf-8"):
        with open(self.book, encoding=encoding, newline="") as file:
            return file.read().removeprefix("\ufeff")

    def read_on(self, pages):
        self.program.press("Next", pages)

    def define(self):
        self.program.key("ctrl+d")
        wait_for(self.program.popups, "the Bookmark menu")
        self.program.key("Escape")
        wait_for(lambda: not self.program.popups(), "the menu to close")

    def words_at(self, encoding="utf-8", length=12):
        """What stands at the reading place and at each bookmark, in the file as it is now."""
        record, text = self.book_record(self.program, self.book), self.text(encoding)
        places = [record["LastPos"], *(int(mark.split(",")[0])
                                       for mark in record["Marks"].split("|") if mark)]
        return [books.text_at(text, place, length) for place in places]

    def read_and_mark(self):
        """Two bookmarks, and a place after them."""
        self.program.start(self.book)
        self.program.wait_for_book(self.book)
        for _ in range(2):
            self.read_on(4)
            self.define()
        self.read_on(3)

    def editors_window(self):
        kind = "notepad.exe" if ON_WINE else "mousepad"
        name = os.path.basename(self.book)
        found = self.screen.xdotool("search", "--onlyvisible", "--class", kind).split()
        return next((window for window in found
                     if name in self.screen.xdotool("getwindowname", window)), None)

    def add_a_chapter(self):
        """In the real editor, which the reader starts, at the top of the book."""
        self.program.open_menu("f")
        self.program.key("e")
        window = wait_for(self.editors_window, "the editor's window with the book")
        self.screen.xdotool("windowactivate", window)
        wait_for(lambda: self.screen.xdotool("getwindowfocus").strip() == window or
                 self.screen.xdotool("getactivewindow").strip() == window, "the editor in front")
        self.screen.xdotool("key", "ctrl+Home")
        self.screen.xdotool("type", "--delay", 10, ADDED)
        self.screen.xdotool("key", "Return", "ctrl+s")
        wait_for(lambda: ADDED in self.text(), "the editor to save")
        os.kill(int(self.screen.xdotool("getwindowpid", window)), signal.SIGTERM)

    def test_edited_in_the_editor_and_refreshed(self):
        if not ON_WINE:
            mousepad = shutil.which("mousepad")
            if not mousepad:
                self.skipTest("mousepad is not installed")
            editor = self.path("editor")
            with open(editor, "w", encoding="ascii") as file:  # which complains on some of its ends
                file.write(f'#!/bin/sh\nexec {mousepad} "$@" 2>/dev/null\n')
            os.chmod(editor, 0o755)
            with open(self.program.data_path, "wb") as file:
                file.write(f"[fwMain]\r\nmOptionsEditor-0={editor}\r\n".encode())
        self.read_and_mark()
        strip = settled_strip(self.program)
        self.program.close()
        words = self.words_at()
        self.program.start()
        self.program.wait_for_book(self.book)
        self.add_a_chapter()
        self.program.activate()
        self.program.key("F5")
        wait_for_strip(self.program, strip)
        self.program.close()
        self.assertEqual(self.words_at(), words)

    def test_another_encoding_and_a_new_chapter_until_tomorrow(self):
        self.read_and_mark()
        strip = settled_strip(self.program)
        self.program.close()
        words = self.words_at()
        self.assertEqual(len(words), 3)
        with open(self.book, "wb") as file:
            file.write(("\n".join([ADDED] * 30 + self.lines[5:]) + "\n").encode("utf-16"))
        self.program.start()
        self.program.wait_for_book(self.book)
        wait_for_strip(self.program, strip)
        self.program.close()
        self.assertEqual(self.words_at("utf-16"), words)

    def test_rich_text_in_its_place(self):
        self.read_and_mark()
        self.program.close()
        words = self.words_at()
        with open(self.book, "w", encoding="ascii") as file:
            file.write("{\\rtf1\\ansi{\\fonttbl{\\f0 DejaVu Serif;}}{\\b " + ADDED + "\\par}\n" +
                       "".join(line + "\\par\n" for line in self.lines) + "}")
        self.program.start()
        self.program.wait_for_book(self.book)
        self.program.close()
        record = self.book_record(self.program, self.book)
        text = "\n".join([ADDED, *self.lines])
        marks = [books.text_at(text, int(mark.split(",")[0]), 12)
                 for mark in record["Marks"].split("|")]
        self.assertEqual(marks, words[1:])

    def test_words_that_have_gone_are_a_question(self):
        self.read_and_mark()
        self.program.close()
        gone = int(self.words_at()[1][:5])
        books.write_book(self.book, self.lines[:gone - 20] + self.lines[gone + 20:])
        self.program.start()
        self.program.wait_for_book(self.book)
        self.program.close()
        section = self.program.data().sections["Default\\" + self.book_record(
            self.program, self.book)["Path"]]
        uncertain = [key for key, value in section
                     if key.startswith("Mark-") and value.endswith("|?")]
        self.assertEqual(len(uncertain), 1)
        books.write_book(self.book, self.lines)  # and back
        self.program.start()
        self.program.wait_for_book(self.book)
        self.program.close()
        self.assertEqual(int(self.words_at()[1][:5]), gone)

    def lower_half(self):
        """Of the view, where no caret blinks."""
        picture = self.program.picture()
        return picture.crop(0, picture.height // 2, picture.width - SCROLL_BAR,
                            picture.height - STATUS_HEIGHT)

    def change_while_it_is_read(self, write):
        """Line on top and caret stay, also when the book is written again at once."""
        self.read_and_mark()
        self.program.close()
        words = self.words_at()
        top = int(words[0][:5])
        self.program.start()
        self.program.wait_for_book(self.book)
        for _ in range(3):
            self.program.key("Down")
        self.program.key("End")  # of the fourth line in view
        strip, before = settled_strip(self.program), self.lower_half()
        below = [line.upper() for line in self.lines[top + 5:]]
        write([ADDED] * 30 + self.lines[:top + 5] + below)
        wait_for(lambda: not self.lower_half().looks_like(before), "the new text")
        wait_for_strip(self.program, strip)
        self.program.key("shift+Home")
        marked = copied(self.program)
        self.program.close()
        self.assertEqual(self.words_at(), words)
        self.assertEqual(marked, self.lines[top + 2])

    def test_shown_again_by_itself_when_the_file_changes(self):
        def write(lines):
            with open(self.book, "wb"):
                pass  # as some programs begin to write
            books.write_book(self.book, lines)
        self.change_while_it_is_read(write)

    def test_shown_again_when_another_file_takes_its_place(self):
        def write(lines):
            books.write_book(self.book + ".new", lines)
            os.replace(self.book + ".new", self.book)
        self.change_while_it_is_read(write)

    def test_a_folder_that_was_renamed_comes_back_whole(self):
        shelf, moved = self.path("shelf"), self.path("new shelf")
        os.mkdir(shelf)
        names = ["one.txt", "two.txt", "three.txt"]
        for number, name in enumerate(names):
            self.book = books.write_book(os.path.join(shelf, name), self.lines[number * 7:])
            self.read_and_mark()
            strip = settled_strip(self.program)
            self.program.close()
        words = self.words_at()
        os.rename(shelf, moved)
        self.book = os.path.join(moved, "three.txt")
        self.program.start(self.book)
        self.program.wait_for_book(self.book)
        wait_for_strip(self.program, strip)
        self.program.open_menu("f")
        self.program.close_menu()
        self.program.close()
        self.assertEqual(self.words_at(), words)
        self.assertEqual(self.program.data().paths(),
                         [os.path.join(moved, name) for name in reversed(names)])
        self.assertEqual([record["Marks"] == "" for record in self.program.data().records()],
                         [False] * 3)


if __name__ == "__main__":
    main()
