"""A file of another format opened by mistake: the reader is asked, and Return keeps things as they are."""
import gzip
import zipfile

from harness import books
from harness.open_dialog import OpenDialog
from harness.story import Story, main
from harness.wait import wait_for


class ForeignFile(Story):
    def setUp(self):
        self.book = books.write_book(self.path("lanterns.txt"), books.lines("latin", 500))
        self.program = self.reader().start(self.book)
        self.program.wait_for_book(self.book)

    def epub(self, name):
        path = self.path(name)
        with zipfile.ZipFile(path, "w") as archive:
            archive.writestr("mimetype", "application/epub+zip")
            archive.writestr("chapter.xhtml", "<p>" + "Lanterns. " * 500, zipfile.ZIP_DEFLATED)
        return path

    def compressed(self, name):
        path = self.path(name)
        with gzip.open(path, "wb") as file:
            file.write(b"A text that was packed.\n" * 100)
        return path

    def open(self, path):
        dialog = OpenDialog(self.program)
        dialog.choose_type("all")
        dialog.type_path(path)
        dialog.close()

    def assert_nothing_changed(self, before):
        self.program.wait_for_book(self.book)
        wait_for(self.program.is_active, "the reader to have the keyboard again")
        self.program.wait_until_idle()
        self.assertEqual(self.program.data_bytes(), before)

    def test_refused(self):
        """By the dialog, whatever the file's name, and by a later start."""
        before = self.program.data_bytes()
        for number, path in enumerate((self.epub("quay.epub"), self.epub("quay.txt"),
                                       self.compressed("miller.txt"), self.compressed("miller.htm"))):
            with self.subTest(path=path):
                self.open(path)
                self.program.answer_message(("Return", "Escape")[number % 2])
                self.assert_nothing_changed(before)
        self.assertEqual(self.program.launch(path).wait(30), 0)
        self.program.answer_message()
        self.assert_nothing_changed(before)
        self.program.close()
        self.assertEqual(self.program.data().paths(), [self.book])

    def test_shown_all_the_same(self):
        """And not asked about again, at later starts, either."""
        path = self.epub("quay.epub")
        self.open(path)
        box = self.program.wait_for_message()
        wait_for(lambda: self.program.is_active(box), "the message to have the keyboard")
        self.program.key("Left", "Return")
        self.program.wait_for_book(path)
        self.program.close()
        self.assertEqual(self.program.data().paths(), [path, self.book])
        self.program.start()
        self.program.wait_for_book(path)
        self.program.close()
        self.program.start(path)
        self.program.wait_for_book(path)
        self.program.close()

    def test_given_at_the_start(self):
        """The question stands over the book that was read before."""
        self.program.close()
        self.program.start_with_message(self.epub("quay.epub"))
        self.program.wait_for_book(self.book)
        self.program.close()
        self.assertEqual(self.program.data().paths(), [self.book])

    def test_text_with_the_name_of_another_format(self):
        for name in ("quay.pdf", "quay.epub"):
            path = self.path(name)
            books.write_book(path, ["%PDF-1.7 and PK are how such files begin."] * 50)
            self.open(path)
            self.program.wait_for_book(path)
        self.program.close()
        self.assertEqual(len(self.program.data().paths()), 3)


if __name__ == "__main__":
    main()
