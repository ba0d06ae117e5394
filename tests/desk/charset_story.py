"""An 8-bit book that opened in the wrong script is put right in the font dialog, by keyboard."""
from harness import books
from harness.clipboard import copied
from harness.font_dialog import FontDialog
from harness.story import Story, main

SCRIPTS = 10  # at most, with the same first letter


class Charset(Story):
    def setUp(self):
        self.lines = books.lines("cyrillic", 200)
        self.book = books.write_book(self.path("fonari.txt"), self.lines, "cp1251")
        self.program = self.reader().start(self.book)
        self.program.wait_for_book(self.book)

    def first_line(self):
        self.program.key("ctrl+Home", "shift+End")
        return copied(self.program)

    def try_scripts(self):
        """As a reader would, until the letters are right."""
        for attempt in range(1, SCRIPTS):
            dialog = FontDialog(self.program)
            dialog.choose_face("DejaVu Sans")  # which has the script
            dialog.choose_cyrillic(attempt)
            dialog.close()
            if self.first_line() == self.lines[0]:
                return
        self.fail("no script makes the letters right")

    def test_put_right(self):
        wrong = self.lines[0].encode("cp1251").decode("cp1252")
        self.assertEqual(self.first_line(), wrong)
        self.try_scripts()
        self.program.close()
        self.assertEqual(self.book_record(self.program, self.book)["Charset"], "204")

        self.program.start()
        self.program.wait_for_book(self.book)
        self.assertEqual(self.first_line(), self.lines[0])
        self.program.close()

    def test_confirmed_as_it_is_nothing_changes(self):
        self.program.finish_keys()
        self.program.key("Escape")
        before = self.program.data().records()
        FontDialog(self.program).close()
        self.program.close()
        after = self.program.data().records()
        for record in (before[0], after[0]):
            record.pop("Access")
        self.assertEqual(after, before)


if __name__ == "__main__":
    main()
