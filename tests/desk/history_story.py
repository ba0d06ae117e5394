"""The history in the File menu: its order, missing books, and taking them out."""
import os

from harness import books
from harness.menu_picture import row_darkness
from harness.picture import grab
from harness.story import Story, main
from harness.text_view import settled_strip
from harness.wait import wait_for

COMMANDS = 4  # of the File menu above the history


class History(Story):
    def setUp(self):
        self.books = [books.write_book(self.path(f"{name}.txt"), books.lines("latin", 500))
                      for name in ("anchor", "bridge", "canal", "dock", "eddy")]
        self.program = self.reader()
        for path in self.books:
            self.program.start(path)
            self.program.wait_for_book(path)
            self.program.close()
        self.history = self.books[::-1]  # each came to the top when it was given at the start
        self.assertEqual(self.program.data().paths(), self.history)

    def wait_for_history(self, paths):
        wait_for(lambda: self.program.data().paths() == paths, f"the history {paths}")

    def test_choosing_the_third(self):
        self.program.start()
        self.program.wait_for_book(self.history[0])
        self.program.choose_book(2, len(self.history))
        self.program.wait_for_book(self.history[2])
        self.wait_for_history([self.history[i] for i in (2, 0, 1, 3, 4)])
        self.program.choose_book(4, len(self.history))
        self.program.wait_for_book(self.history[4])
        expected = [self.history[i] for i in (4, 2, 0, 1, 3)]
        self.wait_for_history(expected)
        self.program.close()
        self.assertEqual(self.program.data().paths(), expected)
        self.program.start()
        self.program.wait_for_book(expected[0])
        self.program.close()

    def grey_rows(self):
        """The numbers of the File menu's rows that are greyed."""
        menu = self.program.open_menu("f")
        picture = wait_for(lambda: grab(self.screen, menu), "a picture of the menu")
        self.program.close_menu()
        rows = row_darkness(picture)
        return [number for number, dark in enumerate(rows) if dark < 0.6 * max(rows)]

    def test_missing_books(self):
        for index in (1, 3):
            os.rename(self.history[index], self.history[index] + ".away")
        self.program.start()
        self.program.wait_for_book(self.history[0])
        grey = self.grey_rows()
        self.assertEqual([row for row in grey if row >= COMMANDS], [COMMANDS + 1, COMMANDS + 3])

        self.program.open_menu("f")
        self.program.key("n")
        self.wait_for_history([self.history[i] for i in (0, 2, 4)])
        self.program.finish_keys()
        self.assertEqual([row for row in self.grey_rows() if row >= COMMANDS], [])
        self.program.close()

    def test_first_book_that_exists_opens(self):
        os.remove(self.history[0])
        os.remove(self.history[1])
        self.program.start()
        self.program.wait_for_book(self.history[2])
        self.program.close()

    def test_all_books_missing(self):
        for path in self.history:
            os.remove(path)
        self.program.start()
        self.assertEqual(self.program.title(), "Norvaset [Default]")
        self.program.open_menu("f")
        self.program.key("n")
        self.wait_for_history([])
        self.program.close()
        self.assertEqual(self.program.data().paths(), [])

    def test_removing_one(self):
        self.program.start()
        self.program.wait_for_book(self.history[0])
        self.program.open_menu("f")
        self.program.key("r")
        wait_for(lambda: len(self.program.popups()) == 2, "the submenu")
        self.program.key("Up", "Up", "Return")
        self.wait_for_history([self.history[i] for i in (0, 1, 2, 4)])
        self.program.close()

    def test_removing_the_shown_book(self):
        self.program.start()
        self.program.wait_for_book(self.history[0])
        shown = settled_strip(self.program)
        self.program.open_menu("f")
        self.program.key("r")
        wait_for(lambda: len(self.program.popups()) == 2, "the submenu")
        self.program.key(*["Up"] * len(self.history), "Return")
        self.program.finish_keys()
        self.assertTrue(settled_strip(self.program).looks_like(shown), "its text stays")
        self.program.choose_book(3, len(self.history) - 1)
        self.program.wait_for_book(self.history[4])
        self.program.close()
        self.assertNotIn(self.history[0], self.program.data().paths())


if __name__ == "__main__":
    main()
