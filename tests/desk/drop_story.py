"""Files dropped on the view: the first of them opens."""
import os
import urllib.parse

from harness import books
from harness.drag import drop, needs_drag_source
from harness.story import Story, main
from harness.wine import ON_WINE


@needs_drag_source
class Drop(Story):
    def setUp(self):
        self.book = self.write("lanterns.txt")
        self.program = self.reader().start(self.book)
        self.program.wait_for_book(self.book)

    def write(self, name):
        return books.write_book(self.path(name), books.lines("latin", 500))

    def address(self, path, safe="/"):
        return ("file://" + urllib.parse.quote(os.fsencode(path), safe)).encode()

    def answer_message(self, key="Return"):
        """The drag source has its answer by now: `drop` waits for it."""
        if ON_WINE:
            # Wine brings the program to the front, but does not ask the window manager to.
            self.screen.xdotool("windowactivate", self.program.wait_for_message())
        self.program.answer_message(key)

    def assert_opened(self, path):
        self.program.wait_for_book(path)
        self.program.close()
        self.assertEqual(self.program.data().paths()[0], path)

    def test_the_first_of_several(self):
        first, second = self.write("quay.txt"), self.write("miller.txt")
        drop(self, self.address(first), self.address(second))
        self.assert_opened(first)
        self.assertEqual(self.program.data().paths(), [first, self.book])

    def test_on_the_bars(self):
        """Menu bar, scroll bar and status bar are parts of the window, too."""
        _, _, width, height = self.program.rectangle()
        for number, at in enumerate(((width // 2, 10), (width - 10, height // 2), (50, height - 10))):
            with self.subTest(at=at):
                path = self.write(f"quay{number}.txt")
                drop(self, self.address(path), at=at)
                self.program.wait_for_book(path)
                self.program.activate()
        self.program.close()

    def test_names_with_percents_and_other_scripts(self):
        path = self.write("100% 25%41 – мельник #粉屋 𝄞?.txt".replace("?", ""))
        drop(self, self.address(path))
        self.assert_opened(path)

    def test_unescaped_bytes(self):
        path = self.write("café au lait.txt")
        drop(self, b"file://" + os.fsencode(path))
        self.assert_opened(path)

    def test_a_host_and_what_is_no_file(self):
        path = self.write("quay.txt")
        drop(self, b"# a remark", b"https://norvaset.example/book.txt",
                  b"file://localhost" + os.fsencode(path))
        self.assert_opened(path)

    def test_a_name_that_cannot_be_deciphered(self):
        with open(os.fsencode(self.path("quay")) + b"-\xff.txt", "wb") as file:
            file.write(b"dark\r\n")
        drop(self, self.address(self.path("quay")) + b"-%FF.txt")
        self.answer_message()
        self.assert_opened(self.book)

    def test_what_cannot_be_opened(self):
        for path in (self.path("missing.txt"), self.folder, "/dev/null"):
            with self.subTest(path=path):
                drop(self, self.address(path))
                self.answer_message("Escape")
        drop(self, b"https://norvaset.example/book.txt")
        self.program.activate()
        self.program.finish_keys()
        self.assertFalse(self.program.message_box())
        self.assert_opened(self.book)


if __name__ == "__main__":
    main()
