"""An impatient user hammers on keys and mouse: the program takes it and closes cleanly."""
import contextlib
import random
import time

from harness import books
from harness.data_file import data_file_bytes, record_line
from harness.story import Story, main
from harness.wait import wait_for

TIME = 4  # seconds of hammering for each seed
KEYS = ["Next", "Prior", "Up", "Down", "Left", "Right", "Home", "End", "ctrl+Home", "ctrl+End",
        "shift+Next", "shift+Down", "ctrl+Right", "Tab", "F10", "Escape", "alt+f", "alt+e", "alt+v",
        "alt+b", "alt+p", "alt+o", "alt+h", "ctrl+plus", "ctrl+minus", "F1", "Menu", "ctrl+a"]
# What chooses "Exit" is not among the keys: no Return, and no blank while a menu may be open. Three
# Escapes leave any menu.
ALONE = ["Escape"] * 3
LEAVING = ["Escape"] * 4
PHRASES = [["alt+f", "o"], [*ALONE, "space"], [*ALONE, "shift+space"], ["alt+f", "r"],
           ["super+m"]]


class Impatience(Story):
    def setUp(self):
        self.book = books.write_rtf_book(self.path("lanterns.rtf"), books.lines("latin", 3000))
        self.other = books.write_book(self.path("quay.txt"), books.long_paragraphs("hebrew", 3000))
        self.program = self.reader()
        records = [record_line(path, Wrap=1) for path in (self.book, self.other)]
        with open(self.program.data_path, "wb") as file:
            file.write(data_file_bytes(*records, Left=100, Top=80, Width=800, Height=600))
        self.program.start()
        self.program.wait_for_book(self.book)

    def hammer(self, chance):
        action = chance.random()
        if action < 0.6:
            self.program.key(*chance.choices(KEYS, k=chance.randint(1, 12)))
        elif action < 0.8:
            self.program.key(*chance.choice(PHRASES))
        elif action < 0.85:
            self.screen.xdotool("windowsize", self.program.window, chance.randint(1, 1400),
                                chance.randint(1, 1100))
        elif action < 0.88:
            self.screen.xdotool("windowminimize", self.program.window)
            self.screen.xdotool("windowactivate", self.program.window)
        else:
            self.click_in_the_corner(chance)

    def click_in_the_corner(self, chance):
        """The lower right of the window, which menus do not reach, and its scroll bar."""
        left, top, width, height = self.program.rectangle()
        if width < 500 or height < 500:
            return
        x, y = left + width - chance.randint(1, 150), top + height - chance.randint(1, 100)
        button = chance.choice((1, 1, 1, 2, 3, 4, 5))
        self.screen.xdotool("mousemove", x, y, "click", "--repeat", chance.randint(1, 4), "--delay",
                            chance.choice((1, 30)), button)

    def others(self):
        """The windows over or beside the main one, the lowest first."""
        return [window for window in self.program.windows() if window != self.program.window]

    def calm_down(self):
        wait_for(self.is_left_alone, "the window to be left alone", deadline=120)
        wait_for(self.program.is_active, "the window to have the keyboard")
        self.program.finish_keys()

    def is_left_alone(self):
        """Leaves the menu, dialog or help on top. Keys are answered in order: so when a dialog that
        hammering never opens comes alone, all that was done before has been answered."""
        others, dialog = self.others(), self.program.window_named("Find")
        self.screen.xdotool("windowactivate", others[-1] if others else self.program.window)
        self.program.key(*LEAVING)
        if not others:
            self.program.key("ctrl+f")
        with contextlib.suppress(AssertionError):  # what opened late has taken the keys
            wait_for(lambda: self.others() != others, "an answer", deadline=10)
        return others == [dialog] and not self.others()

    def test_hammering(self):
        for seed in (1, 2, 3):
            with self.subTest(seed=seed):
                chance, end = random.Random(seed), time.monotonic() + TIME
                while time.monotonic() < end:
                    self.hammer(chance)
                    self.assertTrue(self.program.is_alive())
                self.calm_down()
                self.program.close()
                self.assertEqual({self.book, self.other}, set(self.program.data().paths()))
                self.program.start()
        self.program.close()


if __name__ == "__main__":
    main()
