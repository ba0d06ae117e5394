"""An 8-bit book that opened in the wrong script is put right in the font dialog, by keyboard."""
import unittest

from harness import books
from harness.clipboard import copied
from harness.dialog import Dialog
from harness.story import Story, main
from harness.wine import ON_WINE


class Charset(Story):
    def setUp(self):
        self.lines = books.lines("cyrillic", 200)
        self.book = books.write_book(self.path("fonari.txt"), self.lines, "cp1251")
        self.program = self.reader().start(self.book)
        self.program.wait_for_book(self.book)

    def first_line(self):
        self.program.key("ctrl+Home", "shift+End")
        return copied(self.program)

    def font_dialog(self):
        self.program.open_menu("v")
        return Dialog(self.program, "Font", "f")

    @unittest.skipIf(ON_WINE, "the system's dialog has keys of its own")
    def test_put_right(self):
        wrong = self.lines[0].encode("cp1251").decode("cp1252")
        self.assertEqual(self.first_line(), wrong)
        dialog = self.font_dialog()
        dialog.key("alt+r")
        dialog.type("cyr")
        dialog.close()
        self.assertEqual(self.first_line(), self.lines[0])
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
        self.font_dialog().close()
        self.program.close()
        after = self.program.data().records()
        for record in (before[0], after[0]):
            record.pop("Access")
        self.assertEqual(after, before)

    @unittest.skipIf(ON_WINE, "the system's dialog has keys of its own")
    def test_another_face_and_size(self):
        dialog = self.font_dialog()
        dialog.type("dej")
        dialog.key("alt+s", "Down", "alt+z", "ctrl+a")
        dialog.type("17")
        dialog.key("alt+u")
        dialog.close()
        self.program.close()
        record = self.book_record(self.program, self.book)
        self.assertTrue(record["FontName"].startswith("DejaVu "))
        names = ("FontSize", "Italic", "Bold", "Underline", "Strikethru")
        self.assertEqual([record[name] for name in names], ["17", "1", "0", "1", "0"])


if __name__ == "__main__":
    main()
