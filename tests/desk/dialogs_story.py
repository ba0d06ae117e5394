"""Dialogs that the system or Qt draws, driven by the keys of their own controls."""
import re

from harness import books
from harness.clipboard import copied
from harness.color_dialog import ColorDialog
from harness.dialog import Dialog
from harness.font_dialog import FontDialog
from harness.story import Story, main
from harness.text_view import view_top
from harness.wait import wait_for

PLACES = {100: "a Zephyr from the west", 500: "the zephyrine evening", 900: "no zephyr at all"}
PAPER, NIGHT = (160, 192, 224), (16, 16, 48)
WHITE = b"\xff\xff\xff"


def color_reference(red, green, blue):
    """As the record has it."""
    return str(red | green << 8 | blue << 16)


class Dialogs(Story):
    def setUp(self):
        lines = books.lines("latin", 1200)
        for line, text in PLACES.items():
            lines[line] = text
        self.book = books.write_book(self.path("winds.txt"), lines)
        self.program = self.reader().start(self.book)
        self.program.wait_for_book(self.book)

    def record(self):
        return self.book_record(self.program, self.book)

    def wait_for_field(self, name, value):
        wait_for(lambda: self.record()[name] == value, f"{name} to become {value}")

    def test_font(self):
        dialog = FontDialog(self.program)
        dialog.press("face", "Down", "Down")
        dialog.press("style", "Down")
        dialog.set_size("17")
        dialog.press("underline")
        dialog.press("strikeout")
        face = self.record()["FontName"]
        dialog.close()
        self.wait_for_field("FontSize", "17")
        record = self.record()
        self.assertNotIn(record["FontName"], ("", face))
        self.assertEqual([record[name] for name in ("Underline", "Strikethru")], ["1", "1"])
        self.assertIn("1", (record["Bold"], record["Italic"]))

        before = {name: record[name] for name in record if name != "Access"}
        dialog = FontDialog(self.program)  # it shows what was chosen
        dialog.press("underline")
        dialog.close()
        self.wait_for_field("Underline", "0")
        record = self.record()
        self.assertEqual({name: record[name] for name in before}, before | {"Underline": "0"})
        dialog = FontDialog(self.program)
        dialog.set_size("9")
        dialog.close("Escape")
        self.program.close()
        self.assertEqual(self.record()["FontSize"], "17")

    def test_background(self):
        self.program.open_menu("v")
        dialog = ColorDialog(self.program, "Background Color...", "b")
        dialog.set(*PAPER)
        dialog.close()
        self.wait_for_field("BackColor", color_reference(*PAPER))
        wait_for(lambda: self.pixel_of_paper() == bytes(PAPER), "the new paper")
        self.assertLess(self.letters(WHITE), 10)
        self.program.open_menu("v")
        dialog = ColorDialog(self.program, "Background Color...", "b")
        dialog.set(*NIGHT)
        dialog.close()
        self.wait_for_field("BackColor", color_reference(*NIGHT))
        wait_for(lambda: self.letters(WHITE) > 1000, "white letters on dark paper")
        self.assertEqual(self.record()["ForeColor"], "0")  # nothing is stored of that
        self.program.open_menu("v")
        dialog = ColorDialog(self.program, "Background Color...", "b")
        dialog.set(1, 2, 3)
        dialog.close("Escape")
        self.program.close()
        self.assertEqual(self.record()["BackColor"], color_reference(*NIGHT))

    def letters(self, color):
        """The pixels of this colour in the view."""
        picture = self.program.picture()
        top = view_top(picture)
        view = picture.crop(20, top or 0, picture.width - 60, picture.height - 60)
        return sum(view.pixels[i:i + 3] == color for i in range(0, len(view.pixels), 3))

    def pixel_of_paper(self):
        picture = self.program.picture()
        top = view_top(picture)
        return top and picture.pixel(picture.width - 60, top + 10)

    def find(self, *keys, text=None, end="Return"):
        dialog = Dialog(self.program, "Find", "ctrl+f")
        if text:
            dialog.type(text)
        dialog.key(*keys)
        dialog.close(end)

    def line_found(self):
        """What is selected and the rest of its line."""
        self.program.key("shift+End")
        return copied(self.program)

    def test_find_options(self):
        whole, case = ["Tab", "space"], ["Tab", "space"]
        self.find(*whole, *case, text="zephyr", end="Escape")
        self.find(*whole, *case, text="zephyr", end="alt+f")
        self.assertEqual(copied(self.program), "zephyr")
        self.assertEqual(self.line_found(), "zephyr at all")
        self.find("alt+w", text="zephyr")  # the options are as they were left
        self.assertEqual(self.line_found(), "zephyrine evening")
        self.find("alt+c", text="zephyr")
        self.assertEqual(self.line_found(), "zephyr at all")
        self.program.key("F3")
        self.assertEqual(self.line_found(), "Zephyr from the west")
        self.program.close()

    def ask_for_name(self):
        self.program.open_menu("p")
        return Dialog(self.program, "Add New...", "n")

    def profiles(self):
        data = self.program.data()
        return [value for key, value in data.sections["mProfileList"]]

    def test_name(self):
        dialog = self.ask_for_name()
        dialog.type("Ann")
        dialog.close("Escape")
        dialog = self.ask_for_name()
        dialog.type("Ann")
        dialog.key("Tab", "Tab")
        dialog.close("space")  # Cancel
        self.assertEqual(self.profiles(), ["Default"])
        dialog = self.ask_for_name()
        dialog.type("An")
        dialog.key("Left")
        dialog.type("n")
        dialog.key("Tab")
        dialog.close("space")  # OK
        wait_for(lambda: "[Ann]" in self.program.title(), "the new profile")
        self.assertEqual(self.profiles(), ["Ann", "Default"])
        self.ask_about_removing("Escape")
        self.ask_about_removing("Return")  # Cancel is the one that Return presses
        self.ask_about_removing("Left", "space")
        wait_for(lambda: self.profiles() == ["Ann"], "the profile to go")
        self.program.close()

    def test_no_box_can_be_minimised_or_maximised(self):
        """By what the program asks of window managers; the one of the stories has its own mind."""
        dialog = self.ask_for_name()
        self.assert_only_closes(dialog)
        dialog.close("Escape")
        self.program.open_menu("h")
        dialog = Dialog(self.program, "About Norvaset", "a")
        self.assert_only_closes(dialog)
        dialog.close("Escape")
        self.program.close()

    def assert_only_closes(self, dialog):
        self.assertIn("_NET_WM_WINDOW_TYPE_DIALOG", self.program.property("_NET_WM_WINDOW_TYPE", dialog.window))
        hints = self.program.property("_MOTIF_WM_HINTS", dialog.window)
        flags, functions, decorations = [int(number, 16) for number in re.findall(r"0x[0-9a-f]+", hints)[:3]]
        self.assertEqual(flags & 3, 3, "both are said")
        for minimise, maximise, said in ((8, 16, functions), (32, 64, decorations)):
            self.assertEqual(said & (1 | minimise | maximise), 0, hints)  # 1: all but those named
            self.assertNotEqual(said, 0, hints)

    def ask_about_removing(self, *answer):
        """The last profile of the submenu."""
        self.assertEqual(self.profiles(), ["Ann", "Default"])
        self.program.open_menu("p")
        self.program.key("r")
        wait_for(lambda: len(self.program.popups()) == 2, "the submenu")
        question = Dialog(self.program, "Norvaset", "Up", "Return")
        question.key(*answer[:-1])
        question.close(answer[-1])


if __name__ == "__main__":
    main()
