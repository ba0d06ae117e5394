"""Printing a text into a PDF file."""
import shutil
import unittest

from harness import books
from harness.printing import Printing
from harness.story import Story, main
from harness.wine import ON_WINE

COUNT = 3000


@unittest.skipIf(ON_WINE, "Wine has no printer here")
@unittest.skipUnless(shutil.which("pdftotext"), "poppler-utils is not installed")
class Print(Printing, Story):
    def open(self, name="quay.txt", count=COUNT):
        self.lines = [" ".join(line.split()) for line in books.lines("latin", count)]
        self.book = books.write_book(self.path(name), books.lines("latin", count))
        self.program = self.reader().start(self.book)
        self.program.wait_for_book(self.book)
        self.program.wait_until_settled()

    def test_all_pages(self):
        self.open()
        self.ask()
        self.print()
        pages = self.pages()
        self.assertGreater(len(pages), 50)
        self.assertEqual({page[0] for page in pages}, {pages[0][0]})
        self.assertIn("quay.txt", pages[0][0])
        self.assertEqual([page[-1] for page in pages], [str(i + 1) for i in range(len(pages))])
        self.assertEqual([line for page in pages for line in page[1:-1]], self.lines)
        self.program.close()

    def test_a_range_of_pages(self):
        self.open()
        self.ask()
        self.choose_pages(2, 3)
        self.print()
        self.assertEqual([page[-1] for page in self.pages()], ["2", "3"])
        self.program.close()

    def test_cancelled(self):
        self.open(count=100_000)
        self.cancel_printing()
        self.program.close()


if __name__ == "__main__":
    main()
