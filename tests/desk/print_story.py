"""Printing a text into a PDF file."""
import os
import shutil
import subprocess
import unittest

from harness import books
from harness.story import Story, main
from harness.wait import wait_for
from harness.wine import ON_WINE

COUNT = 3000
FROM = 38, 139  # pixels from the dialog's left and lower edges to "Pages from", in Qt's own dialog


@unittest.skipIf(ON_WINE, "Wine has no printer here")
@unittest.skipUnless(shutil.which("pdftotext"), "poppler-utils is not installed")
class Print(Story):
    def open(self, name="quay.txt", count=COUNT):
        self.lines = [" ".join(line.split()) for line in books.lines("latin", count)]
        self.book = books.write_book(self.path(name), books.lines("latin", count))
        self.program = self.reader().start(self.book)
        self.program.wait_for_book(self.book)
        self.program.wait_until_settled()

    def ask(self):
        self.program.key("ctrl+p")
        self.dialog = wait_for(lambda: self.program.window_named("Print"), "the print dialog")
        wait_for(lambda: self.program.is_active(self.dialog), "the dialog to have the keyboard")

    def pdf(self):
        """The file that the dialog proposes."""
        found = [name for name in os.listdir(self.program.home) if name.endswith(".pdf")]
        return os.path.join(self.program.home, found[0]) if found else None

    def is_printed(self):
        """Between the dialog and word of the progress no other window is open."""
        if not self.pdf():
            return False
        with open(self.pdf(), "rb") as file:
            return file.read().rstrip().endswith(b"%%EOF")

    def wait_until_alone(self):
        wait_for(lambda: self.program.windows() == [self.program.window], "all dialogs to close")
        self.program.activate()

    def pages(self):
        done = subprocess.run(["pdftotext", "-layout", self.pdf(), "-"], capture_output=True,
                              check=True)
        pages = done.stdout.decode().split("\f")[:-1]
        return [[" ".join(line.split()) for line in page.splitlines() if line.strip()]
                for page in pages]

    def test_all_pages(self):
        self.open()
        self.ask()
        self.program.key("Return")
        wait_for(self.is_printed, "the whole file")
        self.wait_until_alone()
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
        height = self.program.rectangle(self.dialog)[3]
        self.program.key("alt+o")  # more of the dialog
        wait_for(lambda: self.program.rectangle(self.dialog)[3] > height, "the options")
        self.program.wait_until_idle()
        left, top, _, height = self.program.rectangle(self.dialog)
        self.program.click(left + FROM[0], top + height - FROM[1])
        self.program.key("Tab")
        self.screen.xdotool("type", "--delay", 0, "2")
        self.program.key("Tab")
        self.screen.xdotool("type", "--delay", 0, "3")
        self.program.key("Return")
        wait_for(self.is_printed, "the whole file")
        self.wait_until_alone()
        self.assertEqual([page[-1] for page in self.pages()], ["2", "3"])
        self.program.close()

    def test_cancelled(self):
        self.open(count=100_000)
        self.ask()
        self.program.key("Escape")
        self.wait_until_alone()
        self.assertIsNone(self.pdf())
        self.ask()
        self.program.key("Return")
        progress = wait_for(lambda: next((w for w in self.program.windows("--name", "^Print$")
                                          if w != self.dialog), None), "word that it prints")
        wait_for(lambda: self.program.is_active(progress), "it to have the keyboard")
        self.program.key("Escape")
        self.wait_until_alone()
        self.assertIsNone(self.pdf())
        self.program.close()


if __name__ == "__main__":
    main()
