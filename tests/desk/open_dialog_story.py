"""The dialog of File, Open through its own parts, and books that the list holds as the wrong kind."""
import os
import urllib.parse

from harness import books, journeys
from harness.data_file import data_file_bytes, record_line
from harness.drag import drop, needs_drag_source
from harness.html_story import SLACK
from harness.journey_story import JourneyStory
from harness.open_dialog import TYPES, OpenDialog
from harness.story import main
from harness.wait import wait_for
from harness.wine import shown_path


class OpenDialogStory(JourneyStory):
    def setUp(self):
        super().setUp()
        self.page = journeys.write(self.folder, "g-page.html")
        self.text = journeys.write(self.folder, "a-text.txt")

    def begins_with(self, name):
        """The box shows the same as when this type has been chosen in it."""
        dialog = OpenDialog(self.program)
        self.program.wait_until_idle()
        before = dialog.type_box_picture()
        dialog.key("alt+t", "Home" if name == "all" else "End", "alt+n")
        wait_for(lambda: not dialog.type_box_picture().looks_like(before), "another type")
        dialog.key("alt+t", "Home", *["Down"] * TYPES.index(name), "alt+n")
        wait_for(lambda: dialog.type_box_picture().looks_like(before), f"{name} in the box again")
        dialog.close("Escape")

    def open(self, path, *chosen):
        self.program.wait_until_idle()
        dialog = OpenDialog(self.program)
        for name in chosen:
            dialog.choose_type(name)
        dialog.type_path(path)
        dialog.close()

    def test_begins_with_the_type_of_the_shown_book(self):
        self.program.start()
        self.begins_with("text")
        for name, kind in (("d-rich.rtf", "rich"), ("c-text", "all"), ("a-text.txt", "text"),
                           ("g-page.html", "page")):
            path = journeys.write(self.folder, name)
            self.open(path, kind)
            self.program.wait_for_book(path)
            self.program.wait_until_idle()
            self.begins_with(kind)
        self.program.close()

    def test_the_button_opens_what_the_type_hides(self):
        """By its name alone, in the folder of the shown book, and by the mouse."""
        rich = journeys.write(self.folder, "d-rich.rtf")
        log = books.write_book(self.path("quay.log"), journeys.LINES)
        self.program.start(self.text)
        for path in (rich, log):
            dialog = OpenDialog(self.program)
            dialog.pick_type("text")
            dialog.type_name(os.path.basename(path))
            self.program.wait_until_idle()
            dialog.press_open()
            self.program.wait_for_book(path)
        self.program.close()
        kinds = [record["Filter"] for record in self.program.data().records()]
        self.assertEqual(kinds, ["0", "1", "0"])

    def begin_with_wrong_list(self, kind=0):
        """The list of an earlier version, which took every book of its dialog for a text."""
        with open(self.program.data_path, "wb") as file:
            file.write(data_file_bytes(
                record_line(self.page, Filter=kind, Wrap=1, FontName="DejaVu Serif", FontSize=14,
                            LastPos=700, Marks="40,5"),
                record_line(self.text, Wrap=1)))

    def start_with_wrong_list(self, *book):
        self.begin_with_wrong_list()
        self.program.start(*book)
        self.program.wait_for_book(self.page)

    def assert_is_page(self):
        self.program.wait_for_book(self.page)
        self.assert_shown(self.page, journeys.PAGE)
        self.read_on()
        self.program.close()
        record = self.book_record(self.program, self.page)
        self.assertEqual((record["Filter"], record["FontSize"], record["Marks"]), ("2", "0", ""))
        self.program.start()
        self.assert_shown(self.page, journeys.PAGE)
        self.program.close()
        self.assertAlmostEqual(self.book_record(self.program, self.page)["LastPos"],
                               record["LastPos"], delta=SLACK)

    def test_a_named_page_that_the_list_holds_as_text(self):
        self.start_with_wrong_list(self.page)
        self.assert_is_page()

    def test_a_typed_page_that_the_list_holds_as_text(self):
        self.start_with_wrong_list()
        self.open(self.page)
        self.assert_is_page()

    @needs_drag_source
    def test_a_dropped_page_that_the_list_holds_as_text(self):
        self.start_with_wrong_list()
        drop(self, b"file://" + urllib.parse.quote(self.page).encode())
        self.program.activate()
        self.assert_is_page()

    def test_to_and_fro(self):
        """Each kind has its own place, and finds it again."""
        page = journeys.write(self.folder, "i-page")
        self.program.start(page)
        self.program.wait_for_book(page)
        self.read_on()
        for chosen, kind in (("page", 2), ("text", 0), ("page", 2), ("all", 2)):
            with self.subTest(chosen=chosen):
                self.open(page, chosen)
                self.assert_shown(page, kind)
                self.read_on()
        self.program.close()
        record = self.book_record(self.program, page)
        self.assertEqual(record["Filter"], "2")
        other = self.program.data().value("Default\\" + shown_path(page), "OtherView").split("=")
        self.assertEqual(other[0], "12")  # the size of the letters as text, and the place
        self.assertGreater(int(other[2]), 0)

    def test_rich_text_that_the_list_holds_as_text(self):
        """By a drop and at the start; it is handed to the editor of its kind then."""
        self.page = journeys.write(self.folder, "d-rich.rtf")
        self.begin_with_wrong_list()
        self.start(self.page)
        self.program.wait_for_book(self.page)
        self.assert_editor(self.page, 1)
        self.program.close()
        record = self.book_record(self.program, self.page)
        self.assertEqual((record["Filter"], record["FontSize"], record["Marks"]),
                         ("1", "14", "40,5"))
        self.assertGreater(record["LastPos"], 600)


if __name__ == "__main__":
    main()
