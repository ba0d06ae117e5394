"""Killed at random moments of a reader's whole day, the program loses nothing that was saved once."""
import os
import random
import time

from harness import books
from harness.data_file import FIELDS
from harness.dialog import Dialog
from harness.story import Story, main
from harness.wait import wait_for
from harness.wine import ON_WINE, shown_path

# Each takes about a second; NORVASET_KILLS=500 for a long trial.
KILLS = int(os.environ.get("NORVASET_KILLS", "4" if ON_WINE else "15"))
SEED = int(os.environ.get("NORVASET_SEED", "29"))
LINES = 400
LONGEST_LIFE = 4.0 if ON_WINE else 1.2  # seconds of work before a kill


class KillAnywhere(Story):
    def setUp(self):
        self.chance = random.Random(SEED)
        self.program = self.reader()
        self.books = [books.write_book(self.path("lanterns.txt"), books.lines("latin", LINES)),
                      books.write_rtf_book(self.path("quay.rtf"), books.lines("latin", LINES)),
                      books.write_book(self.path("miller.txt"), books.lines("cyrillic", LINES))]
        self.seen = {}  # by profile and path: the bookmarks ever saved, and the size

    def open_all(self):
        """By hand, in two profiles."""
        self.program.start(self.books[0])
        self.program.wait_for_book(self.books[0])
        self.open(self.books[1])
        self.program.open_menu("p")
        dialog = Dialog(self.program, "Add New...", "n")
        dialog.type("Anna")
        dialog.close()
        wait_for(lambda: "[Anna]" in self.program.title(), "the new profile")
        self.open(self.books[2])
        self.open(self.books[0])
        self.program.close()

    def open(self, path):
        dialog = Dialog(self.program, "Open File", "ctrl+o")
        dialog.type(shown_path(path))
        dialog.close()
        wait_for(lambda: self.program.title().endswith("- " + shown_path(path)), "the book")

    def assert_nothing_lost(self):
        data = self.program.data()  # fails for a line that is not whole
        names = {name for _, name in data.sections["mProfileList"]}
        self.assertEqual(names, {"Default", "Anna"})
        for profile in names:
            now = {record["Path"]: record for record in data.records(profile)}
            for path, marks in self.seen.get(profile, {}).items():
                self.assertIn(path, now, f"a book of {profile}")
                self.assertLessEqual(marks, _marks(now[path]), "a bookmark is gone")
            for path, record in now.items():
                self.assertEqual(len(record), len(FIELDS))
                self.assertGreater(record["Size"], 0)
                self.seen.setdefault(profile, {}).setdefault(path, set()).update(_marks(record))

    def work(self):
        """One thing that a reader does; a menu is waited for, what it does is not."""
        keys = self.chance.choice([
            ["Next"] * 3, ["Down", "Down"], ["Prior"], ["ctrl+End"], ["ctrl+Home", "Next"],
            ["ctrl+plus"], ["ctrl+minus"], ["F5"], "mark", "book", "book", "profile"])
        if keys == "mark":
            self.program.key("Down", "ctrl+d")  # none can be at the very start
            wait_for(self.program.popups, "the menu with the mark", 5)
            self.program.close_menu()
            self.program.key("Escape")
        elif keys == "book":
            self.program.open_menu("f")
            self.program.key("Up", "Up", "Return")  # the last of the list, above Exit
        elif keys == "profile":
            self.program.open_menu("p")
            self.program.key("Up", "Return")
        else:
            self.program.key(*keys)
        wait_for(lambda: not self.program.popups(), "the menu to close")

    def test_all_kinds_of_work(self):
        self.open_all()
        self.assert_nothing_lost()
        for number in range(KILLS):
            self.program.start()
            end = time.monotonic() + self.chance.uniform(0, LONGEST_LIFE)
            while time.monotonic() < end:
                self.work()
            self.assertTrue(self.program.is_alive(), f"it ended by itself before kill {number}")
            self.program.kill()
            self.assert_nothing_lost()
        marks = sum(len(marks) for books_of in self.seen.values() for marks in books_of.values())
        self.assertGreater(marks, 0, "no bookmark was ever saved: nothing was tried")


def _marks(record):
    return {mark.split(",")[0] for mark in record["Marks"].split("|") if mark}


if __name__ == "__main__":
    main()
