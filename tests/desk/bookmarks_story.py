"""Bookmarks: defined out of order, kept, walked through with the menu's keys, and taken away."""
from harness import books
from harness.clipboard import copied
from harness.dialog import Dialog
from harness.menu_picture import checked_row
from harness.picture import grab
from harness.story import Story, main
from harness.text_view import settled_strip
from harness.wait import wait_for

MARKED = [120, 40, 200, 80, 160]  # lines, in the order in which they are marked
LENGTH = 81                       # of a mark without a selection


class Bookmarks(Story):
    def setUp(self):
        self.lines = books.lines("latin", 400)
        self.text = "\n".join(self.lines) + "\n"
        self.book = books.write_book(self.path("lanterns.txt"), self.lines)
        self.program = self.reader().start(self.book)
        self.program.wait_for_book(self.book)

    def start_of(self, line):
        return sum(len(text) + 1 for text in self.lines[:line])

    def marks(self):
        return self.book_record(self.program, self.book)["Marks"]

    def define(self, line):
        """Marks the line and returns the picture of the menu that shows the mark."""
        self.program.key("ctrl+Home")
        self.program.press("Down", line)
        self.program.key("Escape", "ctrl+d")  # out of the menu bar, where a closed menu leaves it
        menu = wait_for(self.program.popups, "the Bookmark menu")[0]
        picture = self.menu_picture(menu)
        self.program.key("Escape")
        wait_for(lambda: not self.program.popups(), "the menu to close")
        return picture

    def test_one_escape_leads_back_to_the_book(self):
        """From the menu that the program opened, and from one reached from there."""
        for line, keys in ((10, ["Escape"]), (20, ["Right", "Left", "Escape"])):
            with self.subTest(keys=keys):
                self.program.key("ctrl+Home")
                self.program.press("Down", line)
                self.program.key("Escape", "ctrl+d")
                wait_for(self.program.popups, "the Bookmark menu")
                self.program.key(*keys)
                wait_for(lambda: not self.program.popups(), "the menu to close")
                self.program.wait_until_idle()  # between one menu and the next there is none, either
                self.program.key("Down", "shift+End")  # the bar would open a menu by it
                self.assertEqual(copied(self.program), self.lines[line + 1])
        self.program.close()

    def menu_picture(self, menu):
        """Once two in a row show the same, and no longer the empty window."""
        pictures = [None]

        def same_again():
            pictures.append(grab(self.screen, menu))
            before, now = pictures[-2:]
            return before and now and now.pixels == before.pixels and not now.is_plain()
        wait_for(same_again, "a picture of the menu")
        return pictures[-1]

    def define_all(self):
        for line in MARKED:
            self.define(line)
        self.assertEqual(self.marks(), self.expected(MARKED))

    def expected(self, lines):
        return "|".join(f"{self.start_of(line)},{LENGTH}" for line in sorted(lines))

    def choose(self, *keys):
        self.program.open_menu("b")
        self.program.key(*keys)
        wait_for(lambda: not self.program.popups(), "the menu to close")

    def line_shown(self):
        """The number of the marked line that is highlighted; the highlight begins before it."""
        text = copied(self.program)
        self.assertEqual(len(text), LENGTH)
        self.assertTrue(text.startswith("\n"))
        return next(i for i, line in enumerate(self.lines) if text[1:].startswith(line[:20]))

    def test_defined_out_of_order_and_walked_through(self):
        self.define_all()
        self.program.close()
        self.assertEqual(self.marks(), self.expected(MARKED))

        self.program.start()
        self.program.wait_for_book(self.book)
        before = settled_strip(self.program)
        marked = sorted(MARKED)
        self.choose("Up", "Up", "Up", "Return")  # the third of the five
        self.assertEqual(self.line_shown(), marked[2])
        self.assert_highlighted(before)
        for keys, place in (("x", 3), ("x", 4), ("p", 3)):
            self.choose(keys)
            self.assertEqual(self.line_shown(), marked[place])
        self.choose("l")  # where no mark was followed yet
        self.assertTrue(settled_strip(self.program).looks_like(before))
        self.program.close()

    def assert_highlighted(self, before):
        self.assertLess(before.coloured(), 100)
        self.assertGreater(settled_strip(self.program).coloured(), 2000)

    def test_place_of_a_mark_is_the_place_left(self):
        self.define_all()
        self.choose("Up", "Return")
        self.assertEqual(self.line_shown(), max(MARKED))
        self.program.close()
        self.assertEqual(self.book_record(self.program, self.book)["LastPos"],
                         self.start_of(max(MARKED)))

    def test_new_mark_stands_out(self):
        self.define(10)
        bold = self.define(20)
        menu = self.program.open_menu("b")
        usual = self.menu_picture(menu)
        self.program.close_menu()
        self.assertGreater(_ink(_lower_half(bold)), _ink(_lower_half(usual)))
        self.program.close()

    def checked_row(self):
        row = checked_row(self.menu_picture(self.program.open_menu("b")))
        self.program.close_menu()
        return row

    def test_check_is_where_next_and_previous_count_from(self):
        near = [4, 8, 12, 16]
        for line in near:
            self.define(line)
        self.choose("Up", "Up", "Up", "Return")  # the second of the four
        self.assertEqual(self.line_shown(), near[1])
        checked = self.checked_row()
        self.assertIsNotNone(checked)
        self.program.open_menu("b")
        self.program.key("d")
        wait_for(lambda: len(self.program.popups()) == 2, "the submenu")
        self.program.key(*["Up"] * len(near), "Return")
        left = near[1:]
        wait_for(lambda: self.marks() == self.expected(left), "the first mark to go")
        self.assertEqual(self.checked_row(), checked)
        self.choose("x")
        self.assertEqual(self.line_shown(), left[2])
        self.assertGreater(self.checked_row(), checked)
        self.program.close()

    def clear_all(self, *answer):
        self.program.open_menu("b")
        question = Dialog(self.program, "Norvaset", "a")
        question.key(*answer[:-1])
        question.close(answer[-1])

    def test_taking_away(self):
        self.define_all()
        self.program.open_menu("b")
        self.program.key("d")
        wait_for(lambda: len(self.program.popups()) == 2, "the submenu")
        self.program.key("Up", "Return")
        left = sorted(MARKED)[:-1]
        wait_for(lambda: self.marks() == self.expected(left), "the last mark to go")
        self.clear_all("Return")  # which keeps them
        self.assertEqual(self.marks(), self.expected(left))
        self.clear_all("Left", "Return")
        wait_for(lambda: self.marks() == "", "all marks to go")
        self.program.close()


def _lower_half(menu):
    """The marks, without the command that a key opens the menu at."""
    return menu.crop(0, menu.height // 2, menu.width, menu.height)


def _ink(picture):
    return sum(255 - value for value in picture.pixels[::3])


if __name__ == "__main__":
    main()
