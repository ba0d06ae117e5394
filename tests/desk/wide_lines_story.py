"""Lines that are wider than the window: what is found or marked far to the right comes into view."""
from harness import books
from harness.clipboard import copied
from harness.dialog import Dialog
from harness.story import Story, main
from harness.wait import wait_for

FAR, NEAR = 100, 150  # lines with the word, in one of them far to the right
WORD = "zephyr"
WIDE = "and the lanterns went on along the quay " * 60


class WideLines(Story):
    def setUp(self):
        self.lines = books.lines("latin", 300)
        self.lines[FAR] = WIDE + WORD + " " + WIDE
        self.lines[NEAR] = WORD + " " + WIDE
        self.book = books.write_book(self.path("winds.txt"), self.lines)
        self.program = self.reader().start(self.book)
        self.program.wait_for_book(self.book)
        self.program.open_menu("v")
        self.program.key("w")
        wait_for(lambda: self.record()["Wrap"] == "0", "lines that do not wrap")

    def record(self):
        return self.book_record(self.program, self.book)

    def wait_for_selected(self, pixels):
        """Until so much of the selection is in view, or nothing of it for none."""
        def seen():
            coloured = self.program.picture().coloured()
            return coloured < 100 if pixels == 0 else coloured >= pixels
        wait_for(seen, f"{pixels} pixels of the selection in view")

    def find(self, text):
        dialog = Dialog(self.program, "Find", "ctrl+f")
        dialog.type(text)
        dialog.close()

    def test_found_and_marked(self):
        self.find(WORD)
        self.wait_for_selected(500)
        self.program.key("ctrl+d")
        wait_for(self.program.popups, "the Bookmark menu")
        self.program.close_menu()
        self.program.key("Escape", "F3")  # out of the menu bar
        wait_for(lambda: copied(self.program) == WORD, "the next one")
        self.wait_for_selected(500)
        self.program.key("ctrl+Home")
        self.wait_for_selected(0)

        self.program.open_menu("b")
        self.program.key("Up", "Return")
        wait_for(lambda: not self.program.popups(), "the menu to close")
        self.wait_for_selected(500)
        self.assertEqual(copied(self.program), " " + WORD[:-1])
        self.program.close()
        self.assertEqual(self.record()["LastPos"], sum(len(line) + 1 for line in self.lines[:FAR]))


if __name__ == "__main__":
    main()
