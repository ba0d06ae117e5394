"""Finding: typed into the dialog, found again with F3, around the end of the book."""
from harness import books
from harness.clipboard import copied
from harness.dialog import Dialog
from harness.story import Story, main
from harness.wine import shown_path

PLACES = {100: "a Zephyr from the west", 500: "the zephyrine evening", 900: "no zephyr at all"}


class Find(Story):
    def setUp(self):
        self.lines = books.lines("latin", 1200)
        for line, text in PLACES.items():
            self.lines[line] = text
        self.book = books.write_book(self.path("winds.txt"), self.lines)
        self.program = self.reader().start(self.book)
        self.program.wait_for_book(self.book)

    def find(self, text, *options):
        dialog = Dialog(self.program, "Find", "ctrl+f")
        dialog.type(text)
        dialog.key(*options)
        dialog.close()

    def found(self):
        """What is selected, on to the end of its line."""
        self.assertEqual(copied(self.program).lower(), "zephyr")
        self.program.key("shift+End")
        return copied(self.program)

    def next(self):
        self.program.key("F3")
        return self.found()

    def test_on_and_around_the_end(self):
        self.find("zephyr", "Home")  # an option key that changes nothing
        self.assertEqual(self.found(), "Zephyr from the west")
        self.assertEqual(self.next(), "zephyrine evening")
        self.assertEqual(self.next(), "zephyr at all")
        self.assertEqual(self.next(), "Zephyr from the west")
        self.assertEqual(self.next(), "zephyrine evening")
        self.program.close()
        record = self.book_record(self.program, self.book)
        self.assertEqual(record["LastPos"], sum(len(line) + 1 for line in self.lines[:500]))
        self.assertEqual(self.program.data().value("Default\\" + shown_path(self.book), "HistFind"), "zephyr")

    def test_whole_words_in_one_case(self):
        self.find("zephyr", "alt+w", "alt+c")
        self.assertEqual(self.found(), "zephyr at all")
        self.assertEqual(self.next(), "zephyr at all")
        self.program.close()

    def test_past_searches_are_offered_after_a_restart(self):
        self.find("lantern")
        self.program.key("ctrl+Home")
        self.find("zephyr")
        self.program.close()
        self.program.start()
        self.program.wait_for_book(self.book)
        dialog = Dialog(self.program, "Find", "ctrl+f")
        dialog.key("Down")
        dialog.close()
        self.assertEqual(self.found(), "Zephyr from the west")
        self.program.close()

    def test_f3_asks_when_nothing_has_been_searched_yet(self):
        dialog = Dialog(self.program, "Find", "F3")
        dialog.type("zephyr")
        dialog.close()
        self.assertEqual(self.found(), "Zephyr from the west")
        self.assertEqual(self.next(), "zephyrine evening")
        self.program.close()

    def test_escape_changes_nothing(self):
        self.program.key("ctrl+Home", "shift+Right")
        before = copied(self.program)
        dialog = Dialog(self.program, "Find", "ctrl+f")
        dialog.type("zephyr")
        dialog.close("Escape")
        self.assertEqual(copied(self.program), before)
        self.program.close()


if __name__ == "__main__":
    main()
