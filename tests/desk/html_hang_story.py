"""A page that hangs: its engine process lives and answers nothing. The reader goes on."""
import os
import unittest

from harness import books
from harness.clipboard import NOTHING, clipboard, copied, fill
from harness.data_file import data_file_bytes, record_line
from harness.dialog import Dialog
from harness.engine import (Hang, engine, is_running, pages, wait_for_ends,
                            wait_for_notice)
from harness.html_story import HtmlStory, needs_engine, paragraphs, write_page
from harness.story import main
from harness.wait import wait_for
from harness.words import can_read

TEXT, HTML = 0, 2  # kinds of books
FAR = 5000  # pixels
# Each paragraph is compared with all before it, for each of the rules: hours.
SLOW_RULES = ",".join(f".none{number} + p ~ p" for number in range(2000))
SLOW_PAGE = "<p>lantern</p>" * 20000 + "<style>%s{color:red}</style>" % SLOW_RULES


@needs_engine
class HtmlHang(HtmlStory):
    def setUp(self):
        self.book, self.other = self.write("lanterns"), self.write("quay")
        self.texts = books.write_book(self.path("text.txt"), books.lines("latin", 50))

    def write(self, name):
        lines = [f"{name} {line}" for line in books.lines("latin", 500)]
        return write_page(self.path(name + ".htm"), paragraphs(lines), name.capitalize())

    def prepare(self, *records):
        """A reader that knows the books, the first of them read last."""
        reader = self.reader()
        with open(reader.data_path, "wb") as file:
            file.write(data_file_bytes(*records))
        return reader

    def known(self, path, kind=HTML, **fields):
        return record_line(path, Filter=kind, Size=os.path.getsize(path), **fields)

    def open_hanging(self, reader=None):
        """Goes to a place and hangs there: the reader, the hang and what was seen."""
        reader = self.open(self.book, "Lanterns", reader)
        self.find_in(reader, "00200")
        self.assertEqual(copied(reader), "00200")  # it is there
        strip = self.lines_on_top(reader)
        return reader, Hang(self, reader), strip

    def find_in(self, reader, text):
        def opens():  # no command is taken while one waits for the page
            reader.key("ctrl+f")
            return reader.window_named("Find")
        wait_for(opens, "the dialog Find")
        dialog = Dialog(reader, "Find")
        dialog.type(text)
        dialog.close()

    def place(self, reader, path):
        return next(each["LastPos"] for each in reader.data().records() if each["Path"] == path)

    @unittest.skipUnless(can_read(), "tesseract is not installed")
    def test_hangs_and_comes_back(self):
        reader, hang, strip = self.open_hanging()
        wait_for_notice(reader)
        reader.key("Next", "End", "ctrl+End", "Tab", "Return")  # not for the page any more
        _, _, width, height = reader.rectangle()
        reader.resize(500, 400)
        wait_for_notice(reader)
        reader.resize(width, height)
        hang.end()
        self.wait_for_place(reader, strip)
        reader.key("Next")
        wait_for(lambda: not self.lines_on_top(reader).looks_like(strip), "the next page")
        reader.close()
        self.assertGreater(self.place(reader, self.book), FAR)

    @unittest.skipUnless(can_read(), "tesseract is not installed")
    def test_commands_while_it_hangs(self):
        reader, hang, strip = self.open_hanging()
        fill(self.screen)
        self.give_commands(reader)  # each is given up after a while
        wait_for_notice(reader)
        self.give_commands(reader)  # at once
        self.assertEqual(clipboard(self.screen), NOTHING)
        hang.end()
        self.wait_for_place(reader, strip)
        reader.close()
        record = self.book_record(reader, self.book)
        self.assertEqual((record["Title"], record["Marks"], record["FontSize"]),
                         ("Lanterns", "", "0"))

    def give_commands(self, reader):
        for keys in ("ctrl+c", "ctrl+d", "F3", "alt+Left", "alt+F2"):
            reader.key(keys)
            self.find_in(reader, "quay")
        for menu, letter in (("e", "o"), ("e", "s"), ("v", "w"), ("v", "l"), ("b", "n")):
            self.find_in(reader, "quay")
            reader.open_menu(menu)
            reader.key(letter, "Escape", "Escape")
            wait_for(lambda: not reader.popups(), "the menu to close")
        self.find_in(reader, "quay")

    def test_sizes_and_colours_wait_for_the_page(self):
        reader, hang, _ = self.open_hanging()
        reader.key("ctrl+plus", "ctrl+plus", "ctrl+KP_Add", "ctrl+minus")
        self.pick_background(reader, "#ffe0c0")
        # With the place, which is of the page as it was.
        self.assertEqual(self.record(reader, self.book)["FontSize"], "0")
        hang.end()
        wait_for(lambda: reader.picture().pixel(5, 300).hex() == "ffe0c0", "the page's colour")
        reader.close()
        left = self.book_record(reader, self.book)
        self.assertGreater(left["LastPos"], FAR)
        self.assertEqual(left["FontSize"], "2")
        self.open(self.book, "Lanterns", reader)
        reader.close()
        self.assertEqual(self.place(reader, self.book), left["LastPos"])

    def test_other_books_at_once(self):
        reader = self.prepare(self.known(self.book), self.known(self.other),
                              self.known(self.texts, TEXT))
        reader, hang, _ = self.open_hanging(reader)
        reader.choose_book(1, 3)
        reader.wait_for_book("Quay")
        wait_for_ends(hang.pids)
        wait_for(lambda: self.whole_text(reader).startswith("quay 00001"), "the page's text")
        left = self.place(reader, self.book)
        self.assertGreater(left, FAR)
        second = Hang(self, reader)
        reader.choose_book(2, 3)
        reader.wait_for_book(self.texts)
        wait_for_ends(second.pids)
        reader.choose_book(2, 3)
        reader.wait_for_book("Lanterns")
        reader.close()
        self.assertEqual(self.place(reader, self.book), left)

    @unittest.skipUnless(can_read(), "tesseract is not installed")
    def test_refresh_loads_it_anew(self):
        reader, hang, _ = self.open_hanging()
        wait_for_notice(reader)
        reader.key("F5")
        wait_for_ends(hang.pids)
        self.assert_loaded_anew(reader)

    def assert_loaded_anew(self, reader):
        """The page answers and is where it was left."""
        left = self.place(reader, self.book)
        self.assertGreater(left, FAR)
        self.whole_text(reader)
        reader.close()
        self.assertEqual(self.place(reader, self.book), left)

    def test_closing(self):
        reader, _, _ = self.open_hanging()
        processes = engine(reader)
        reader.close()
        wait_for_ends(processes)
        self.assertGreater(self.place(reader, self.book), FAR)

    @unittest.skipUnless(can_read(), "tesseract is not installed")
    def test_hangs_while_it_loads(self):
        long = write_page(self.path("long.htm"),
                          paragraphs(books.long_paragraphs("latin", 20000)), "Long")
        reader = self.prepare(self.known(long, FontSize=1, LastPos=4000), self.known(self.other))
        reader.start()
        hang = Hang(self, reader)
        self.assertNotIn("Long", reader.title())
        wait_for_notice(reader)
        reader.key("ctrl+a", "ctrl+c", "ctrl+d", "Next", "F3")
        reader.choose_book(1, 2)
        reader.wait_for_book("Quay")
        wait_for_ends(hang.pids)
        self.assertEqual(self.place(reader, long), 4000)
        reader.choose_book(1, 2)
        reader.wait_for_book("Long")
        reader.close()
        record = self.book_record(reader, long)
        self.assertEqual((record["LastPos"], record["FontSize"]), (4000, "1"))

    @unittest.skipUnless(can_read(), "tesseract is not installed")
    def test_a_page_that_takes_hours(self):
        slow = write_page(self.path("slow.htm"), SLOW_PAGE, "Slow")
        reader = self.prepare(self.known(slow, LastPos=700), self.known(self.other))
        reader.start()
        wait_for_notice(reader)
        self.assertTrue(all(map(is_running, pages(reader))))
        processes = engine(reader)
        reader.close()
        wait_for_ends(processes)
        self.assertEqual(self.place(reader, slow), 700)

    def test_the_place_of_a_page_that_dies(self):
        reader, hang, _ = self.open_hanging()
        hang.kill()
        reader.answer_message()
        reader.key("F5")
        self.assert_loaded_anew(reader)


if __name__ == "__main__":
    main()
