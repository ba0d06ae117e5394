"""A book is read, not written: whatever a hand or another program tries, it stays as it was."""
from harness.clipboard import clipboard, copied, fill
from harness.story import Story, main
from harness.text_view import view_top
from harness.wait import wait_for

# What text controls and word processors do with keys: format, change, insert and take out.
KEYS = [
    *(f"ctrl+{key}" for key in "elrjbiukthmnqswxyz12590"), "ctrl+v",
    *(f"ctrl+shift+{key}" for key in
      ("l", "a", "t", "w", "x", "v", "less", "greater", "space", "8", "apostrophe")),
    "alt+x", "alt+BackSpace", "alt+shift+BackSpace", "shift+Insert", "shift+Delete", "ctrl+Delete",
    "ctrl+BackSpace", "ctrl+Return", "shift+Return", "ctrl+alt+1", "ctrl+alt+e",
    "ctrl+Shift_L", "ctrl+Shift_R", "Delete", "BackSpace", "Return", "Tab", "x", "Insert",
]
WORDS = ["plain and ", r"{\b bold} and ", r"{\i slanted}, ", r"{\ul underlined} and {\fs40 large}"]


class Unchanged(Story):
    def setUp(self):
        self.book = self.path("quay.rtf")
        with open(self.book, "w", encoding="ascii") as file:
            file.write(r"{\rtf1\ansi\deff0{\fonttbl{\f0 DejaVu Serif;}}\f0\fs24 ")
            file.write("".join(rf"{number} {''.join(WORDS)}\par" + "\n" for number in range(40)))
            file.write("}")
        self.program = self.reader().start(self.book)
        self.program.wait_for_book(self.book)
        self.program.key("ctrl+a")
        self.text = copied(self.program)
        self.program.key("ctrl+Home", "Down", "shift+Down", "shift+Down")
        self.selected = copied(self.program)
        self.picture = self.settled_picture()

    def settled_picture(self):
        pictures = [self.program.picture()]

        def same_again():
            pictures.append(self.program.picture())
            return pictures[-1].looks_like(pictures[-2])
        wait_for(same_again, "a picture that stays")
        return pictures[-1]

    def assert_unchanged(self):
        self.assertTrue(self.settled_picture().looks_like(self.picture))
        self.assertEqual(copied(self.program), self.selected)
        self.program.key("ctrl+a")
        self.assertEqual(copied(self.program), self.text)
        self.program.close()
        record = self.book_record(self.program, self.book)
        self.assertEqual((record["FontSize"], record["Align"]), ("12", "0"))

    def test_by_keys(self):
        fill(self.screen)  # there is something to paste
        for key in KEYS:
            self.program.key(key)
        self.assertEqual(self.program.popups(), [])
        self.assert_unchanged()

    def test_by_the_mouse(self):
        """A selection that is dragged stays where it is, and a middle click pastes nothing."""
        left, top, _, _ = self.program.rectangle()
        line = top + view_top(self.program.picture()) + 45
        self.screen.xdotool("mousemove", left + 60, line, "click", 2, "mousedown", 1)
        for step in range(1, 9):
            self.screen.xdotool("mousemove", left + 60 + 10 * step, line + 30 * step)
        self.screen.xdotool("mouseup", 1)
        self.program.key("ctrl+Home", "Down", "shift+Down", "shift+Down")
        self.assert_unchanged()

    def test_a_copy_is_text_and_nothing_else(self):
        for key in ("ctrl+c", "ctrl+Insert"):
            self.assertEqual(copied(self.program, key), self.selected)
            offered = self.screen.output("xclip", "-selection", "clipboard", "-o", "-t", "TARGETS")
            self.assertIn("UTF8_STRING", offered)
            self.assertNotIn("rtf", offered.lower())
            self.assertNotIn("rich", offered.lower())
        self.program.key("ctrl+shift+c")
        self.program.finish_keys()
        self.assertEqual(clipboard(self.screen), self.selected)
        self.program.close()


if __name__ == "__main__":
    main()
