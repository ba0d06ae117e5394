"""Each sort of book by the other ways in: dropped, named at the start, from the list, in another
reader's profile."""
import os
import urllib.parse

from harness import books, journeys
from harness.dialog import Dialog
from harness.drag import drop, needs_drag_source
from harness.html_story import paragraphs, write_page
from harness.journey_story import JourneyStory
from harness.open_dialog import OpenDialog
from harness.story import main
from harness.wait import wait_for


class Journeys(JourneyStory):
    def drop_on(self, first, way):
        """On the view that shows the book `first`: it is chosen again when another one does."""
        self.program.start(first)
        self.program.wait_for_book(first)
        self.choose_editors()
        of_page = journeys.PAGE if first.endswith(".htm") else 0
        for path, kind in self.books(way).items():
            with self.subTest(path=path):
                drop(self, b"file://" + urllib.parse.quote(path).encode())
                self.program.activate()  # the keyboard is still that of the drag's window
                self.arrive(path, kind)
                if (kind == journeys.PAGE) != bool(of_page):
                    self.choose_again(first)
        self.expected[first] = of_page
        self.choose_again(first)
        self.read_on()
        self.come_back()

    def choose_again(self, first):
        self.program.wait_until_idle()
        listed = self.program.data().paths()
        self.program.choose_book(listed.index(first), len(listed))
        self.program.wait_for_book(first)
        self.program.wait_until_idle()

    @needs_drag_source
    def test_drop_on_text(self):
        self.drop_on(books.write_book(self.path("first.txt"), journeys.LINES), "drop on text")

    @needs_drag_source
    def test_drop_on_page(self):
        page = write_page(self.path("first.htm"), paragraphs(journeys.LINES), "")
        self.drop_on(page, "drop on page")

    def test_command_line_and_history(self):
        """The list of what was named at the start is then the history that is chosen from."""
        self.start()
        self.assertEqual(journeys.cells("history"), journeys.cells("command line"))
        for path, kind in self.books("command line").items():
            with self.subTest(path=path):
                self.program.close()
                self.program.process = self.program.launch(path)
                self.program.wait_for_window()
                self.arrive(path, kind)
        self.come_back()

    def test_second_profile(self):
        """What one reader has made of a book says nothing to the other."""
        self.start()
        column = self.books("second profile")
        for path in column:
            with self.subTest(path=path, profile="Default"):
                self.open_as(path, "text")
                self.program.wait_for_book(path)
        self.program.open_menu("p")
        dialog = Dialog(self.program, "Add New...", "n")
        dialog.type("Ann")
        dialog.close()
        wait_for(lambda: self.program.title() == "Norvaset [Ann]", "the second profile")
        for path, kind in column.items():
            with self.subTest(path=path, profile="Ann"):
                self.open_as(path, "all")
                self.arrive(path, kind, "Ann")
        self.come_back("Ann")
        typed = journeys.cells("typed text")
        for path, record in zip(self.program.data().paths(), self.program.data().records()):
            self.assertEqual(record["Filter"], str(typed[os.path.basename(path)]), path)

    def open_as(self, path, chosen):
        self.program.wait_until_idle()
        dialog = OpenDialog(self.program)
        dialog.choose_type(chosen)
        dialog.type_path(path)
        dialog.close()


if __name__ == "__main__":
    main()
