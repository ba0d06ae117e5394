"""The look of the text: changed by keys and menus, kept for each book."""
from harness import books
from harness.coming_back import ComingBack
from harness.story import main
from harness.text_view import settled_strip, wait_for_strip
from harness.wait import wait_for
from harness.wine import shown_path

USUAL = {"FontSize": "12", "Wrap": "1", "Align": "0"}
CHANGED = {"FontSize": "15", "Wrap": "0", "Align": "1"}


class View(ComingBack):
    def setUp(self):
        self.first = books.write_book(self.path("anchor.txt"), books.long_paragraphs("latin", 300))
        self.second = books.write_book(self.path("bridge.txt"), books.lines("accents", 300))
        self.program = self.reader()
        for path in (self.second, self.first):
            self.program.start(path)
            self.program.wait_for_book(path)
            self.program.close()

    def look(self, path):
        record = next(r for r in self.program.data().records() if r["Path"] == shown_path(path))
        return {name: record[name] for name in USUAL}

    def choose(self, key):
        self.program.open_menu("v")
        self.program.key(key)
        self.program.finish_keys()
        self.program.key("Escape")

    def change_look(self):
        self.program.key("ctrl+equal", "ctrl+KP_Add", "ctrl+plus", "ctrl+minus", "ctrl+KP_Add")
        self.program.finish_keys()
        self.program.key("Escape")
        self.choose("w")
        self.choose("r")

    def test_kept_for_each_book(self):
        self.program.start()
        self.program.wait_for_book(self.first)
        self.assertEqual(self.look(self.first), USUAL)
        usual = settled_strip(self.program)
        self.change_look()
        self.assertEqual(self.look(self.first), CHANGED)
        strip = settled_strip(self.program)
        self.assertFalse(strip.looks_like(usual))

        self.program.choose_book(1, 2)
        self.program.wait_for_book(self.second)
        self.assertEqual(self.look(self.second), USUAL)
        self.program.choose_book(1, 2)
        self.program.wait_for_book(self.first)
        wait_for_strip(self.program, strip)
        self.program.close()
        self.assertEqual(self.look(self.first), CHANGED)
        self.assertEqual(self.look(self.second), USUAL)

        self.program.start()
        self.program.wait_for_book(self.first)
        wait_for_strip(self.program, strip)
        self.program.close()
        self.assertEqual(self.look(self.first), CHANGED)

    def test_a_menu_that_was_left_does_not_keep_the_keyboard(self):
        self.program.start()
        self.program.wait_for_book(self.first)
        top = settled_strip(self.program)
        self.program.open_menu("h")
        self.program.key("Escape")
        wait_for(lambda: not self.program.popups(), "the menu to close")
        self.program.open_menu("v")  # from the bar, which has the keyboard
        self.program.key("Escape")
        wait_for(lambda: not self.program.popups(), "the menu to close")
        self.program.key("Escape", "Next")
        wait_for(lambda: not settled_strip(self.program).looks_like(top), "the next page")
        self.program.close()

    def test_wheel_with_ctrl(self):
        self.program.start()
        self.program.wait_for_book(self.first)
        usual = settled_strip(self.program)
        self.turn_wheel_with_ctrl(4, 3)
        self.assertEqual(self.look(self.first)["FontSize"], "15")
        self.turn_wheel_with_ctrl(5, 3)
        self.assertEqual(self.look(self.first)["FontSize"], "12")
        wait_for_strip(self.program, usual)
        self.program.close()

    def turn_wheel_with_ctrl(self, button, notches):
        left, top, width, height = self.program.rectangle()
        self.screen.xdotool("mousemove", left + width // 2, top + height // 2, "keydown", "ctrl",
                            "click", "--repeat", notches, "--delay", 10, button, "keyup", "ctrl")
        self.program.finish_keys()
        self.program.key("Escape")


if __name__ == "__main__":
    main()
