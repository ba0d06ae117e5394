"""Killed at any moment, the program opens its book at the place of the last save."""
import os
import random
import time

from harness import books
from harness.data_file import data_file_bytes, record_line
from harness.story import Story, main
from harness.wait import wait_for
from harness.wine import ON_WINE, found_path

KILLS, SEED = 8 if ON_WINE else 20, 71
LINES = 50000
LONGEST_LIFE = 0.6                  # seconds of reading after a save, before a kill
TIME_OF_A_SWITCH = 0.3 if ON_WINE else 0.05  # seconds


class Kill(Story):
    def setUp(self):
        self.chance = random.Random(SEED)
        self.program = self.reader()
        self.books = [books.write_book(self.path(name), books.lines("latin", LINES))
                      for name in ("lanterns.txt", "quay.txt")]
        records = [record_line(path, Wrap=1) for path in self.books]
        with open(self.program.data_path, "wb") as file:
            file.write(data_file_bytes(*records))

    def places(self):
        """Both books' places; that the data file is whole is checked on the way."""
        data = self.program.data()
        self.assertEqual(data.value("mProfileList", "0"), "Default")
        self.assertEqual(sorted(data.paths()), sorted(self.books))
        return {found_path(record["Path"]): record["LastPos"] for record in data.records()}

    def switch_books(self):
        """The other book, which comes first by this, and the shown one is saved."""
        self.program.choose_book(1, len(self.books))

    def assert_opens_at_saved_place(self):
        """Switching to the other book without reading saves the place that was opened."""
        saved, shown = self.places(), self.program.data().paths()[0]
        self.program.start()
        self.program.wait_for_book(shown)
        self.switch_books()
        wait_for(lambda: self.program.data().paths()[0] != shown, "the other book to come first")
        self.assertEqual(self.places(), saved)
        self.assertEqual([], [name for name in os.listdir(self.program.folder)
                              if name.endswith(".new")], "a killed write left something")

    def read_until_killed(self):
        """At a random moment after a save, often in the middle of the next one."""
        saved = self.places()
        self.program.key("Next")
        self.switch_books()
        wait_for(lambda: self.places() != saved, "a save")
        end = time.monotonic() + self.chance.uniform(0, LONGEST_LIFE)
        while time.monotonic() < end:
            self.program.key(*["Next"] * self.chance.randint(1, 5))
            if self.chance.random() < 0.7:
                self.switch_books()
        time.sleep(self.chance.uniform(0, TIME_OF_A_SWITCH))
        self.assertTrue(self.program.is_alive())
        self.program.kill()

    def test_while_reading_and_switching_books(self):
        for _ in range(KILLS):
            self.assert_opens_at_saved_place()
            self.read_until_killed()
        self.assert_opens_at_saved_place()

    def time_of_a_start(self):
        self.program.start()  # the first one takes longer
        self.program.kill()
        begin = time.monotonic()
        self.program.start()
        self.program.kill()
        return time.monotonic() - begin

    def test_while_starting(self):
        saved, longest = self.places(), self.time_of_a_start()
        for _ in range(KILLS):
            self.program.process = self.program.launch()
            time.sleep(self.chance.uniform(0, longest))
            self.program.kill()
            self.assertEqual(self.places(), saved)
        self.assert_opens_at_saved_place()


if __name__ == "__main__":
    main()
