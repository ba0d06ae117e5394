"""A wide window: the text stands in a column, until the reader wants all the width."""
from harness import books
from harness.coming_back import ComingBack
from harness.dialog import Dialog
from harness.story import main
from harness.text_view import ink, settled_ink
from harness.wait import wait_for

WIDTH = 1200
WHOLE = 60  # pixels between the window's edges and a text that has all of it


class Column(ComingBack):
    def setUp(self):
        self.book = books.write_book(self.path("quay.txt"), books.long_paragraphs("latin", 200))
        self.program = self.reader()
        self.prepare(self.program, self.book, width=WIDTH)

    def start(self):
        self.program.start()
        self.program.wait_for_book(self.book)

    def is_column(self, edges=None):
        """Whether the margins are broad, and alike but for the ragged edge of the lines."""
        edges = edges or ink(self.program.picture())
        if not edges:
            return False
        left, right = edges[0], self.program.rectangle()[2] - edges[1]
        return left > 2 * WHOLE and abs(left - right) < WHOLE

    def is_whole(self):
        edges = ink(self.program.picture())
        return bool(edges) and edges[0] < WHOLE and edges[1] > self.program.rectangle()[2] - 2 * WHOLE

    def test_switched_by_key_and_context_menu(self):
        self.start()
        wait_for(self.is_column, "a column")
        narrow = settled_ink(self.program)
        self.program.key("ctrl+plus", "ctrl+plus")
        wait_for(lambda: self.is_column() and ink(self.program.picture())[0] < narrow[0],
                 "a wider column with larger letters")
        self.program.key("ctrl+minus", "ctrl+minus")
        self.program.key("ctrl+shift+m")
        wait_for(self.is_whole, "the whole width")
        self.program.close()
        self.assertEqual(self.program.data().value("Default", "mViewColumn"), "0")

        self.start()
        wait_for(self.is_whole, "the whole width again")
        self.program.key("shift+F10")
        wait_for(self.program.popups, "the context menu")
        self.program.key("l")
        wait_for(self.is_column, "the column again")
        self.program.close()
        self.assertEqual(self.program.data().value("Default", "mViewColumn"), "1")

    def test_each_profile_has_its_own_and_a_narrow_window_its_margins(self):
        self.start()
        self.program.key("ctrl+shift+m")
        wait_for(self.is_whole, "the whole width")
        self.program.open_menu("p")
        dialog = Dialog(self.program, "Add New...", "n")
        dialog.type("Bo")
        dialog.close()
        wait_for(lambda: self.program.title() == "Norvaset [Bo]", "the new profile")
        dialog = Dialog(self.program, "Open File", "ctrl+o")
        dialog.type(self.program.shown_path(self.book))
        dialog.close()
        self.program.wait_for_book(self.book, "Bo")
        self.program.resize(WIDTH, 600)
        wait_for(self.is_column, "a column of the other profile")
        self.program.resize(420, 600)
        wait_for(lambda: (edges := ink(self.program.picture())) and edges[0] < 20, "small margins")
        self.program.close()


if __name__ == "__main__":
    main()
