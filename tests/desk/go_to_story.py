"""Going to a place by Ctrl+G, and the label that says where one is."""
from harness import books
from harness.dialog import Dialog
from harness.html_story import paragraphs, write_page
from harness.story import Story, main
from harness.text_view import settled_strip, wait_for_strip
from harness.wait import wait_for

LETTERS = "ABCDEFGHIJ"
LINES_OF_CHAPTER = 60
LABEL = 200  # pixels of colour, fewer than the smallest label has


def chapters():
    lines = []
    for number, roman in enumerate(("I", "II", "III", "IV", "V", "VI", "VII", "VIII"), 1):
        lines += ["", "", f"CHAPTER {roman}", f"The {LETTERS[number]}-Tale", ""]
        lines += books.lines("latin", LINES_OF_CHAPTER)
    return lines


def rich_chapters():
    pieces = [r"{\rtf1\ansi{\fonttbl{\f0 DejaVu Serif;}}"
              r"{\stylesheet{\s0 Normal;}{\s1 heading 1;}}\f0\fs24 "]
    for number in range(1, 8):
        pieces.append(rf"\pard\s1\b Tale {LETTERS[number]}\b0\par\pard\s0 ")
        pieces += [line + r"\par" for line in books.lines("latin", LINES_OF_CHAPTER)]
    return "\n".join(pieces) + "}"


class GoTo(Story):
    def open(self, path):
        self.program = self.reader().start(path)
        self.program.wait_for_book(path)
        self.program.wait_until_settled()
        self.program.resize(800, 600)
        return settled_strip(self.program)

    def plain(self):
        return books.write_book(self.path("tales.txt"), chapters())

    def ask(self):
        return Dialog(self.program, "Go To", "ctrl+g")

    def shown_line(self, path, encoding="utf-8"):
        """The line of the file that is at the top, as the record of the closed program has it."""
        self.program.close()
        with open(path, encoding=encoding, newline="") as file:
            text = file.read()
        return books.line_at(text, int(self.book_record(self.program, path)["LastPos"]))

    def test_heading_by_typing(self):
        path = self.plain()
        top = self.open(path)
        dialog = self.ask()
        dialog.key("alt+h")
        dialog.type("g-ta")
        dialog.close()
        wait_for(lambda: not settled_strip(self.program).looks_like(top), "another place")
        self.assertEqual(self.shown_line(path), "CHAPTER VI")

    def test_heading_by_arrows(self):
        path = self.plain()
        self.open(path)
        dialog = self.ask()
        dialog.key("alt+h")
        dialog.type("chapter")
        dialog.key("Down", "Down", "Up")  # from the first one that matches
        dialog.close()
        self.assertEqual(self.shown_line(path), "CHAPTER II")

    def test_per_cent_and_escape(self):
        path = self.plain()
        top = self.open(path)
        self.ask().close("Escape")
        wait_for_strip(self.program, top)
        dialog = self.ask()
        dialog.type("100")
        dialog.close()
        end = settled_strip(self.program)
        self.assertFalse(end.looks_like(top))
        self.program.key("ctrl+End")
        self.program.finish_keys()
        self.assertTrue(settled_strip(self.program).looks_like(end))
        dialog = self.ask()
        dialog.type("0")
        dialog.close()
        wait_for_strip(self.program, top)
        self.program.close()

    def test_nothing_chosen_and_nothing_found(self):
        self.open(self.plain())
        self.program.press("Next", 2)  # into the first chapter, between two per cents
        place = settled_strip(self.program)
        self.ask().close()
        wait_for_strip(self.program, place)
        dialog = self.ask()
        dialog.key("alt+h")
        dialog.type("zebra")
        dialog.key("Return")  # no heading has it: the dialog waits for another word
        self.program.wait_until_idle()
        self.assertTrue(self.program.window_exists(dialog.window))
        dialog.close("Escape")
        wait_for_strip(self.program, place)

    def test_heading_that_one_is_under(self):
        path = self.plain()
        self.open(path)
        self.program.press("Next", 2)
        dialog = self.ask()
        dialog.key("alt+l")  # it is chosen in the list already
        dialog.close()
        self.assertEqual(self.shown_line(path), "CHAPTER I")

    def test_rich_text(self):
        path = self.path("tales.rtf")
        with open(path, "w", encoding="ascii") as file:
            file.write(rich_chapters())
        top = self.open(path)
        dialog = self.ask()
        dialog.key("alt+h")
        dialog.type("tale d")
        dialog.close()
        wait_for(lambda: not settled_strip(self.program).looks_like(top), "another place")
        self.program.key("ctrl+c")  # nothing is selected: the caret stands before the heading
        self.program.key("shift+End", "ctrl+c")
        wait_for(lambda: self.clipboard() == "Tale D", "the heading in the clipboard")
        self.program.close()

    def clipboard(self):
        return self.screen.output("xclip", "-selection", "clipboard", "-o").strip()

    def label(self):
        """Pixels of colour beside the scroll bar: the text is black on white."""
        return self.program.picture().coloured() > LABEL

    def test_label_while_the_wheel_turns(self):
        self.open(self.plain())
        self.assertFalse(self.label())
        left, top, width, height = self.program.rectangle()
        self.screen.xdotool("mousemove", left + width // 3, top + height // 2, "click", 5)
        wait_for(self.label, "the label")
        wait_for(lambda: not self.label(), "the label to go")
        self.program.close()

    def test_page_without_an_engine(self):
        body = "".join(f"<h2>Tale {letter}</h2>" + paragraphs(books.lines("latin", LINES_OF_CHAPTER))
                       for letter in LETTERS)
        self.program = self.reader().start(write_page(self.path("tales.htm"), body))
        self.program.wait_for_book("Lanterns")
        self.program.wait_until_settled()
        self.program.resize(800, 600)
        top = settled_strip(self.program)
        self.assertFalse(self.label())
        left, top_edge, width, height = self.program.rectangle()
        self.screen.xdotool("mousemove", left + width // 3, top_edge + height // 2, "click", 5)
        wait_for(self.label, "the label")
        wait_for(lambda: not self.label(), "the label to go")
        dialog = self.ask()
        dialog.key("alt+h")
        dialog.type("tale d")
        dialog.close()
        wait_for(lambda: not settled_strip(self.program).looks_like(top), "another place")
        dialog = self.ask()
        dialog.type("0")
        dialog.close()
        wait_for_strip(self.program, top)
        self.program.close()


if __name__ == "__main__":
    main()
