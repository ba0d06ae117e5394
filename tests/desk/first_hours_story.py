"""First hours with the reader, by mouse and keys alone: nothing is prepared but the books."""
from harness import books
from harness.clipboard import copied
from harness.dialog import Dialog
from harness.open_dialog import OpenDialog
from harness.story import Story, main
from harness.text_view import settled_strip, view_top, wait_for_strip
from harness.wait import wait_for

PAPER = b"\xff\xff\xff"
FOUND = 700  # the line that holds what is searched for


class FirstHours(Story):
    def setUp(self):
        lines = books.lines("latin", 1000)
        lines[FOUND] = "a Zephyr from the west"
        self.mine = books.write_book(self.path("lanterns.txt"), lines)
        self.yours = books.write_book(self.path("bridge.txt"), books.lines("cyrillic", 800))
        self.lines = lines
        self.program = self.reader()

    def open_by_dialog(self, path, profile="Default"):
        dialog = OpenDialog(self.program)
        dialog.type_path(path)
        dialog.close()
        self.program.wait_for_book(path, profile)

    def turn_pages(self, count):
        """By keys alone, which nothing but the view may have. Returns the lines now on top."""
        for _ in range(count):
            before = settled_strip(self.program)
            self.program.key("Next")
            wait_for(lambda: not settled_strip(self.program).looks_like(before), "the next page")
        return settled_strip(self.program)

    def wait_for_title(self, title):
        wait_for(lambda: self.program.title() == title, f"the title {title}")

    def mouse(self, x, y, *what):
        left, top, _, _ = self.program.rectangle()
        self.screen.xdotool("mousemove", left + x, top + y, *what)

    def find(self, text):
        dialog = Dialog(self.program, "Find", "ctrl+f")
        dialog.type(text)
        dialog.close()
        self.assertEqual(copied(self.program).lower(), text)

    def mark(self):
        self.program.key("ctrl+d")
        wait_for(self.program.popups, "the Bookmark menu")
        self.program.close_menu()
        self.program.key("Escape")

    def test_before_the_first_book_there_is_paper_that_has_the_keyboard(self):
        self.program.start()
        picture = self.program.picture()
        middle = (picture.width // 2, picture.height // 2)
        wait_for(lambda: self.program.picture().pixel(*middle) == PAPER, "the empty view")
        self.program.key("Next", "Home", "ctrl+c")
        self.open_by_dialog(self.mine)
        self.turn_pages(2)
        self.program.close()
        self.assertGreater(self.book_record(self.program, self.mine)["LastPos"], 0)

    def test_read_find_mark_and_come_back(self):
        self.program.start()
        self.open_by_dialog(self.mine)
        self.turn_pages(3)
        self.click_on_a_line_and_copy_it()
        self.find("zephyr")
        self.mark()
        self.change_look()
        strip = settled_strip(self.program)
        self.program.close()
        record = self.book_record(self.program, self.mine)
        self.assertEqual((record["FontSize"], record["Align"]), ("14", "1"))
        self.assertEqual(record["Marks"], f"{self.start_of(FOUND) + len('a ')},{len('zephyr')}")

        self.program.start()
        self.program.wait_for_book(self.mine)
        wait_for_strip(self.program, strip)
        self.program.key("ctrl+Home")
        self.program.open_menu("b")
        self.program.key("Up", "Return")  # the only mark
        wait_for(lambda: not self.program.popups(), "the menu to close")
        self.assertEqual(copied(self.program), " Zephy")  # as bookmarks highlight
        self.program.close()

    def start_of(self, line):
        return sum(len(text) + 1 for text in self.lines[:line])

    def click_on_a_line_and_copy_it(self):
        """One in the view, by the mouse; the wheel comes before and goes back."""
        top = settled_strip(self.program)
        self.mouse(300, 200, "click", 5, "click", 4)
        wait_for_strip(self.program, top)
        self.mouse(300, view_top(self.program.picture()) + 50, "click", 1)
        self.program.key("Home", "shift+End")
        self.assertIn(copied(self.program), self.lines)

    def change_look(self):
        self.program.key("ctrl+plus", "ctrl+plus")
        self.program.open_menu("v")
        self.program.key("r")
        wait_for(lambda: not self.program.popups(), "the menu to close")
        wait_for(lambda: self.program.data().records()[0]["Align"] == "1", "the new alignment")

    def add_person(self, name):
        self.program.open_menu("p")
        dialog = Dialog(self.program, "Add New...", "n")
        dialog.type(name)
        dialog.close()
        self.wait_for_title(f"Norvaset [{name}]")

    def choose_other_person(self):
        """The last item of the Profile menu, of two."""
        self.program.open_menu("p")
        self.program.key("Up", "Return")
        wait_for(lambda: not self.program.popups(), "the menu to close")

    def read_on(self, pages, size, profile="Default"):
        """Some pages, then in larger letters: which stores the place, as a change of profiles does
        not. Returns the lines on top."""
        self.turn_pages(pages)
        self.program.key("ctrl+plus")
        wait_for(lambda: self.program.data().records(profile)[0]["FontSize"] == size,
                 f"letters of {size} points")
        self.program.finish_keys()  # by then they are on the screen
        self.program.key("Escape")
        return settled_strip(self.program)

    def test_a_second_person(self):
        self.program.start()
        self.open_by_dialog(self.mine)
        my_place = self.read_on(2, "13")
        self.add_person("Ann")
        wait_for(lambda: self.program.picture().crop(50, 100, 400, 400).is_plain(), "no book")
        self.open_by_dialog(self.yours, "Ann")
        your_place = self.read_on(3, "14", "Ann")

        self.choose_other_person()
        self.program.wait_for_book(self.mine)
        wait_for_strip(self.program, my_place)
        my_place = self.read_on(1, "14")
        self.choose_other_person()
        self.program.wait_for_book(self.yours, "Ann")
        wait_for_strip(self.program, your_place)
        self.program.close()

        self.program.start()
        self.program.wait_for_book(self.yours, "Ann")  # who read last
        wait_for_strip(self.program, your_place)
        self.choose_other_person()
        self.program.wait_for_book(self.mine)
        wait_for_strip(self.program, my_place)
        self.program.close()
        data = self.program.data()
        self.assertEqual(data.paths("Default"), [self.mine])
        self.assertEqual(data.paths("Ann"), [self.yours])


if __name__ == "__main__":
    main()
