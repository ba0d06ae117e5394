"""Printing a page into a PDF file, and what goes wrong with it."""
import os
import shutil
import unittest

from harness import books
from harness.engine import Hang, engine, wait_for_ends
from harness.html_story import OWN_VIEW, HtmlStory, needs_engine, paragraphs, write_page
from harness.printing import Printing
from harness.story import main
from harness.wait import wait_for

COUNT = 3000
MESSAGE = "^Norvaset Message$"


@unittest.skipUnless(shutil.which("pdftotext"), "poppler-utils is not installed")
@needs_engine
class HtmlPrint(Printing, HtmlStory):
    def setUp(self):
        self.lines = [" ".join(line.split()) for line in books.lines("latin", COUNT)]
        self.book = write_page(self.path("book.htm"), paragraphs(self.lines), "Quay/lights",
                               "<style>body{background:#ffe0c0}</style>")
        self.program = self.open(self.book, "Quay/lights")
        self.proposed = os.path.join(self.program.home, "Quay lights.pdf")

    def ask(self):
        left, top, _, _ = self.program.rectangle()
        self.screen.xdotool("mousemove", left + 200, top + 300, "click", 3)
        wait_for(self.program.popups, "the page's menu")
        self.program.key("p")
        self.wait_for_dialog()

    def test_into_a_file(self):
        self.ask()
        self.print()
        self.assertEqual(self.pdf(), self.proposed)
        self.assertEqual([line for page in self.pages() for line in page], self.lines)
        self.program.close()

    def test_by_key(self):
        super().ask()
        self.print()
        self.program.close()

    def test_cancelled(self):
        self.ask()
        self.program.key("Escape")
        self.wait_until_alone()
        self.program.close()
        self.assertIsNone(self.pdf())

    def print_hanging(self):
        self.ask()
        hang = Hang(self, self.program)
        self.start_printing()
        return hang

    def test_a_page_that_hangs_is_printed_when_it_answers(self):
        hang = self.print_hanging()
        hang.end()
        wait_for(self.is_printed, "the file")
        self.wait_until_alone()
        self.program.close()

    def test_what_cannot_be_written(self):
        hang = self.print_hanging()
        os.mkdir(self.proposed)  # now that the dialog has found that it can be
        hang.end()
        self.program.answer_message()
        self.wait_until_alone()
        self.program.close()

    def test_given_up_while_the_page_hangs(self):
        hang = self.print_hanging()
        self.program.key("Escape")
        self.wait_until_alone()
        self.program.key("F5")  # ends the process, which the engine must survive
        wait_for_ends(hang.pids)
        self.whole_text(self.program)
        self.program.close()
        self.assertIsNone(self.pdf())

    def test_the_page_dies_while_it_prints(self):
        hang = self.print_hanging()
        hang.kill()
        # That it was not printed, and that it can no longer be shown.
        wait_for(lambda: len(self.program.windows("--name", MESSAGE)) == 2, "both messages")

        def answered():
            self.program.key("Return")
            return self.program.windows() == [self.program.window]
        wait_for(answered, "the messages to close")
        self.program.close()

    def test_closing_while_it_prints(self):
        self.print_hanging()
        processes = engine(self.program)
        self.program.terminate()
        wait_for_ends(processes)
        self.assertIsNone(self.pdf())


@unittest.skipUnless(shutil.which("pdftotext"), "poppler-utils is not installed")
@unittest.skipUnless(OWN_VIEW, "the page is printed by the engine")
class OwnHtmlPrint(Printing, HtmlStory):
    def open_lines(self, count):
        self.lines = [" ".join(line.split()) for line in books.lines("latin", count)]
        self.book = write_page(self.path("book.htm"), paragraphs(self.lines), "Quay/lights",
                               "<style>body{background:#ffe0c0}</style>")
        self.program = self.open(self.book, "Quay/lights")
        self.program.wait_until_settled()

    def test_into_a_file(self):
        self.open_lines(COUNT)
        self.ask()
        self.print()
        pages = self.pages()
        self.assertGreater(len(pages), 50)
        self.assertEqual({page[0] for page in pages}, {"Quay/lights"})
        self.assertEqual([page[-1] for page in pages], [str(i + 1) for i in range(len(pages))])
        self.assertEqual([line for page in pages for line in page[1:-1]], self.lines)
        self.program.close()

    def test_some_pages_by_the_page_s_menu(self):
        self.open_lines(COUNT)
        self.program.key("shift+F10")
        wait_for(self.program.popups, "the page's menu")
        self.program.key("p")
        self.wait_for_dialog()
        self.choose_pages(2, 3)
        self.print()
        self.assertEqual([page[-1] for page in self.pages()], ["2", "3"])
        self.program.close()

    def test_cancelled(self):
        self.open_lines(100_000)
        self.cancel_printing()
        self.program.close()


if __name__ == "__main__":
    main()
