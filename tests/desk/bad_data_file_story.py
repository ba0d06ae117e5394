"""The program starts with whatever it finds in place of its data file."""
import os
import random
import unittest

from harness import books
from harness.data_file import data_file_bytes, record_line
from harness.story import Story, main
from harness.wait import wait_for
from harness.wine import ON_WINE, shown_path

SEED = 5
READ_ONLY = 0o444
RIGHTS = 0o666 if ON_WINE else 0o777  # Wine makes the right to run it out of others


class BadDataFile(Story):
    def setUp(self):
        self.program = self.reader()
        self.book = books.write_book(self.path("lanterns.txt"), books.lines("latin", 500))

    def write(self, content):
        with open(self.program.data_path, "wb") as file:
            file.write(content)

    def start_with(self, content):
        self.write(content)
        self.program.start(self.book)
        self.wait_for_title()

    def wait_for_title(self):
        wait_for(lambda: self.program.title().endswith("] - " + shown_path(self.book)), "the book")

    def assert_usable(self, content):
        """The book opens, and its place is kept."""
        self.start_with(content)
        self.program.press("Next", 3)
        self.program.close()
        text = self.program.data_bytes().decode(errors="replace")
        self.assertIn(shown_path(self.book) + "=", text)
        self.program.start(self.book)
        self.wait_for_title()
        self.program.close()

    def test_random_bytes(self):
        chance = random.Random(SEED)
        for size in (1, 100, 100_000):
            with self.subTest(size=size):
                self.assert_usable(bytes(chance.randrange(256) for _ in range(size)))

    def test_nothing_and_blanks(self):
        for content in (b"", b"\r\n\r\n", b"\0" * 1000, b"[", b"=", b"[]\r\n=\r\n"):
            with self.subTest(content=content[:10]):
                self.assert_usable(content)

    def test_a_line_of_a_megabyte(self):
        long = b"x" * (1 << 20)
        for content in (long, b"[Default]\r\n" + long + b"=1\r\n", b"[" + long + b"]\r\n",
                        data_file_bytes("/" + "x" * len(long) + "=1")):
            with self.subTest(start=content[:30]):
                self.assert_usable(content)

    def test_missing_sections(self):
        record = (record_line(self.book, Wrap=1, LastPos=480) + "\r\n").encode()
        for content in (b"[Default\\mFileList]\r\n" + record, b"[mProfileList]\r\n0=Default\r\n",
                        b"[Default]\r\nState=2\r\n"):
            with self.subTest(content=content[:30]):
                self.assert_usable(content)

    def test_senseless_numbers(self):
        names = ("FontSize", "Charset", "Bold", "Wrap", "Align", "ForeColor", "BackColor",
                 "LastPos", "Size")
        for value in ("-1", "99999999999999999999", "x", "1e300", "-2147483648"):
            with self.subTest(value=value):
                record = record_line(self.book, **dict.fromkeys(names, value))
                place = dict.fromkeys(("Left", "Top", "Width", "Height"), value)
                self.write(data_file_bytes(record, State=77, **place))
                self.program.process = self.program.launch(self.book)
                # Wine does not show the X server a window that is wholly outside the screen.
                self.program.window = wait_for(self.program.hidden_window, "the window")
                self.wait_for_title()
                self.program.terminate()

    def test_the_ansi_code_page(self):
        book = books.write_book(self.path("été.txt"), books.lines("accents", 100))
        content = data_file_bytes(record_line(book, Wrap=1, LastPos=0)).decode().encode("cp1252")
        self.write(content)
        self.program.start()
        self.program.wait_for_book(book)
        self.program.close()
        self.assertEqual(self.program.data().paths(), [book])

    def test_read_only(self):
        self.start_with(data_file_bytes())
        self.program.close()
        os.chmod(self.program.data_path, READ_ONLY)
        other = books.write_book(self.path("quay.txt"), books.lines("latin", 100))
        self.program.start(other)
        self.program.wait_for_book(other)
        self.program.close()
        self.assertEqual(os.stat(self.program.data_path).st_mode & RIGHTS, READ_ONLY)
        self.assertEqual(self.program.data().paths(), [other, self.book])

    @unittest.skipIf(ON_WINE, "Wine says of every folder that it can be written")
    def test_a_folder_that_cannot_be_written(self):
        if os.getuid() != 0:
            self.skipTest("only root can run the program as another user")
        program = self.reader("nobody", as_nobody=True)
        os.chown(program.folder, 0, 0)
        with open(os.path.join(program.folder, "messages.log"), "wb"):
            pass
        program.start(self.book)
        program.wait_for_book(self.book)
        program.close()
        self.assertFalse(os.path.exists(program.data_path))
        program.data_path = program.user_data_path()
        self.assertEqual(program.data().paths(), [self.book])
        program.start()
        program.wait_for_book(self.book)
        program.close()

    def test_a_folder_in_its_place(self):
        os.mkdir(self.program.data_path)
        self.program.start_with_message(self.book)
        self.program.wait_for_book(self.book)
        self.program.close()
        self.assertTrue(os.path.isdir(self.program.data_path))


if __name__ == "__main__":
    main()
