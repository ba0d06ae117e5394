"""Books that cannot be opened, or have unusual names or contents, given at the start."""
import os
import shutil

from harness import books
from harness.data_file import data_file_bytes, record_line
from harness.story import Story, main
from harness.wine import ON_WINE, shown_path

GIGABYTE = 1 << 30
UNUSUAL_NAMES = ["a=b=c.txt", ";semi;colon.txt", "[Default].txt", "'single'.txt", "100%41.txt",
                 " leading", "\u05d0\u05d1.txt", "粉屋 𝄞.txt", "a&b_&c.txt", "no dot", "[x].txt",
                 "#hash.txt"]
NAMES_OF_NO_WINDOWS = ["quote\".txt", "back\\slash.txt", "file:.txt"]


class BadPath(Story):
    def setUp(self):
        self.book = books.write_book(self.path("lanterns.txt"), books.lines("latin", 500))
        self.program = self.reader()

    def assert_told(self, path, key="Return"):
        """A message; then the window with the book read before, and the records untouched."""
        with open(self.program.data_path, "wb") as file:
            file.write(data_file_bytes(record_line(self.book, Wrap=1, LastPos=0)))
        self.program.start_with_message(path, key=key)
        self.program.wait_for_book(self.book)
        self.program.close()
        self.assertEqual(self.program.data().paths(), [self.book])

    def assert_opens_again(self, path):
        with open(self.program.data_path, "wb"):
            pass
        self.program.start(path)
        self.program.wait_for_book(path)
        self.program.close()
        self.assertEqual(self.program.data().paths(), [path])
        self.program.start()
        self.program.wait_for_book(path)
        self.program.close()
        self.assertEqual(self.program.data().paths(), [path])

    def test_missing_files_and_folders(self):
        for number, path in enumerate((self.path("missing.txt"), self.path("no/such/book.txt"),
                                       self.book + "/inside.txt", self.folder, "/",
                                       self.path("x" * 300), "/" + "long/" * 2000)):
            with self.subTest(path=path[:80]):
                self.assert_told(path, ("Return", "Escape", "space")[number % 3])

    def test_what_is_no_plain_file(self):
        pipe = self.path("pipe.txt")
        os.mkfifo(pipe)
        os.symlink("loop.txt", self.path("loop.txt"))
        devices = ("NUL", "CON", "\\\\.\\pipe\\book") if ON_WINE else ("/dev/tty",)
        for path in (pipe, "/dev/zero", self.path("loop.txt"), *devices):
            with self.subTest(path=path):
                self.assert_told(path)

    def test_a_gigabyte_of_nothing(self):
        path = self.path("zeros.txt")
        with open(path, "wb") as file:
            file.truncate(GIGABYTE)
        self.program.start(path)
        self.program.wait_for_book(path)
        self.program.key("ctrl+End")
        self.program.finish_keys()
        self.program.close()
        self.assertEqual(self.book_record(self.program, path)["Size"], GIGABYTE)

    def test_names_that_the_data_file_cannot_keep(self):
        names = [b"star*.txt", b"question?.txt", b"new\nline.txt", b"tab\t.txt", b"byte\xff.txt",
                 b"cut \xe4\xb8.txt", b"blank.txt "]
        if ON_WINE:  # no file of Windows has them
            for name in ("star*.txt", "question?.txt", "tab\t.txt"):
                with self.subTest(name=name):
                    self.assert_told(self.path(name))
            return
        for name in names:
            with self.subTest(name=name):
                path = os.fsencode(self.folder) + b"/" + name
                with open(path, "wb") as file:
                    file.write(b"dark\r\n")
                self.assert_told(path)

    def test_unusual_names_come_back(self):
        for name in UNUSUAL_NAMES + ([] if ON_WINE else NAMES_OF_NO_WINDOWS):
            with self.subTest(name=name):
                os.makedirs(self.path("books"), exist_ok=True)
                path = books.write_book(self.path("books/" + name), books.lines("latin", 100))
                self.assert_opens_again(path)

    def test_several_words_are_one_path(self):
        path = books.write_book(self.path("two words.txt"), books.lines("latin", 100))
        self.program.start(*path.split(" "))
        self.program.wait_for_book(path)
        self.program.close()

    def test_a_relative_path_and_an_address(self):
        address = [] if ON_WINE else ["file://" + self.book]  # which no system gives on Windows
        for argument in ["../../lanterns.txt", *address]:
            self.program.start(argument)
            self.program.wait_for_book(self.book)
            self.program.close()
        self.assertEqual(self.program.data().paths(), [self.book])

    def test_empty_and_binary_books(self):
        empty, binary = self.path("empty.txt"), self.path("binary")
        with open(empty, "wb"):
            pass
        _write_binary(binary)
        for path in (empty, binary):
            with self.subTest(path=path):
                self.assert_opens_again(path)

    def test_paging_through_a_binary_book(self):
        path = self.path("binary")
        _write_binary(path)
        self.program.start(path)
        self.program.wait_for_book(path)
        self.program.press("Next", 40)
        self.program.close()
        place = self.book_record(self.program, path)["LastPos"]
        self.assertGreater(place, 0)
        self.program.start()
        self.program.wait_for_book(path)
        self.program.close()
        self.assertEqual(self.book_record(self.program, path)["LastPos"], place)

    def test_a_book_that_vanishes_or_changes_while_open(self):
        self.program.start(self.book)
        self.program.wait_for_book(self.book)
        self.program.press("Next", 2)
        os.remove(self.book)
        self.program.press("Next", 2)
        self.program.close()
        place = self.book_record(self.program, self.book)["LastPos"]
        self.assertGreater(place, 0)
        books.write_book(self.book, ["short"])  # the place is now after the end
        self.program.start()
        self.program.wait_for_book(self.book)
        self.program.press("Next", 2)
        self.program.close()

    def test_a_missing_book_chosen_from_the_menu(self):
        other = books.write_book(self.path("quay.txt"), books.lines("latin", 100))
        with open(self.program.data_path, "wb") as file:
            file.write(data_file_bytes(*(record_line(path, Wrap=1) for path in (self.book, other))))
        self.program.start()
        self.program.wait_for_book(self.book)
        os.remove(other)
        self.program.choose_book(1, 2)
        self.program.answer_message()
        self.assertEqual(self.program.title(), "Norvaset [Default] - " + shown_path(self.book))
        self.program.close()

    def test_without_permission(self):
        if os.getuid() != 0:
            self.skipTest("only root can run the program as another user")
        program = self.reader("nobody", as_nobody=True)
        os.chmod(self.book, 0)
        closed = self.path("closed")
        os.mkdir(closed, 0o700)
        shutil.copy(self.book, closed)
        for path in (self.book, closed + "/lanterns.txt"):
            with self.subTest(path=path):
                program.start_with_message(path)
                program.close()
                self.assertEqual(program.data().paths(), [])


def _write_binary(path):
    """A program without its first bytes, by which it would be recognised."""
    with open("/bin/ls", "rb") as program, open(path, "wb") as file:
        file.write(program.read()[4:])


if __name__ == "__main__":
    main()
