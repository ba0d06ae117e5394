"""Books in many charsets open in the right letters at once; one too short for that is put right in the
font dialog, by keyboard."""
import re

from harness import books
from harness.clipboard import copied, fill
from harness.dialog import Dialog
from harness.font_dialog import FontDialog
from harness.story import Story, main
from harness.wait import wait_for

SCRIPTS = 10  # at most, with the same first letter
LIKELY = 6  # lines of the list in the font dialog that are in view when it opens
# 60 bytes in DOS 850, of which one is no ASCII.
SHORT = "Il babbo disse che la città era lontana e che faceva freddo."


# As a writer of the charset would, which Python does not know.
VIETNAMESE = "Ngày xửa ngày xưa có một ông vua già, ông có ba người con trai."
VIETNAMESE_IN_VISCII = (b"Ng\xe0y x\xd8a ng\xe0y x\xdfa c\xf3 m\xb5t \xf4ng vua gi\xe0, \xf4ng c\xf3 ba "
                        b"ng\xdf\xb6i con trai.")
UKRAINIAN = "Жили собі дід та баба, і була в них курочка, і їх яєчко."  # in one line of the column


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

    def test_right_at_once(self):
        self.assertEqual(self.first_line(), self.lines[0])
        self.program.close()
        texts = {"dos": (self.lines[0], self.lines[0].encode("cp866")),
                 "japanese": (books.lines("japanese", 1)[0], books.lines("japanese", 1)[0].encode("euc_jp")),
                 "ukrainian": (UKRAINIAN, UKRAINIAN.encode("koi8_u")),
                 "vietnamese": (VIETNAMESE, VIETNAMESE_IN_VISCII)}
        for name, (text, data) in texts.items():
            with self.subTest(name=name):
                self.book = self.path(name + ".txt")
                with open(self.book, "wb") as file:
                    file.write(data + b"\r\n")
                self.program.start(self.book)
                self.program.wait_for_book(self.book)
                self.assertEqual(self.first_line(), text)
                self.program.close()

    def find(self, word):
        """Pasted, for the keyboard has no such letters."""
        fill(self.program.screen, word)
        dialog = Dialog(self.program, "Find", "ctrl+f")
        dialog.key("ctrl+v")
        dialog.close()

    def test_hebrew_in_visual_order(self):
        """Kept as it is seen: it is found as it is typed, and copied as it is read, bracket and number too."""
        lines = books.lines("hebrew", 40)
        lines[30] = "(פגישה) בשנת 1948 אחרי החגים."
        seen = [re.sub(r"\d+", lambda number: number[0][::-1], line[::-1]) for line in lines]
        seen[30] = ".םיגחה ירחא 1948 תנשב (השיגפ)"
        self.show("pier.txt", "\r\n".join(seen).encode("cp862"))
        self.assertEqual(self.first_line(), lines[0])
        self.find("החגים")
        self.assertEqual(copied(self.program), "החגים")
        self.program.key("Home", "shift+End")
        self.assertEqual(copied(self.program), lines[30])
        self.program.key("ctrl+Home")
        self.find("פגישה")
        self.assertEqual(copied(self.program), "פגישה")
        self.program.key("F3")
        self.assertEqual(copied(self.program), "פגישה")
        self.program.close()
        self.assertEqual(self.book_record(self.program, self.book)["Charset"], "177")

    def test_put_right(self):
        self.program.close()
        self.lines = ["Ж"]
        self.book = books.write_book(self.path("short.txt"), self.lines, "cp1251")
        self.program.start(self.book)
        self.program.wait_for_book(self.book)
        self.assertEqual(self.first_line(), "Æ")
        self.try_scripts()
        self.program.close()
        self.assertEqual(self.book_record(self.program, self.book)["Charset"], "204")

        self.program.start()
        self.program.wait_for_book(self.book)
        self.assertEqual(self.first_line(), self.lines[0])
        self.program.close()

    def show(self, name, data):
        """Instead of the book shown."""
        self.program.close()
        self.book = self.path(name)
        with open(self.book, "wb") as file:
            file.write(data)
        self.program.start(self.book)
        self.program.wait_for_book(self.book)

    def test_put_right_by_a_line_of_the_book(self):
        self.show("city.txt", SHORT.encode("cp850"))
        self.assertEqual(self.first_line(), SHORT.replace("à", "…"))
        for row in range(1, LIKELY):
            dialog = FontDialog(self.program)
            dialog.choose_reading(row)
            dialog.close()
            if self.first_line() == SHORT:
                break
        self.assertEqual(self.first_line(), SHORT)
        self.program.close()
        self.program.start()
        self.program.wait_for_book(self.book)
        self.assertEqual(self.first_line(), SHORT)
        self.program.close()

    def marked_text(self):
        self.program.open_menu("b")
        self.program.key("Up", "Return")
        return copied(self.program)

    def test_another_charset_of_the_same_script(self):
        """Place and bookmark stay on their characters, of which the other charset makes more."""
        lines = books.lines("japanese", 300)
        self.show("mill.txt", "\r\n".join(lines).encode("euc_jp"))
        self.assertEqual(self.first_line(), lines[0])
        self.program.key(*["Next"] * 4)
        self.program.key("Home", "shift+End")
        line = copied(self.program)
        self.assertIn(line, lines[50:])
        self.program.key("ctrl+d")
        wait_for(self.program.popups, "the Bookmark menu")
        self.program.close_menu()
        mark = self.marked_text()
        self.assertIn(mark[5:20], line)
        dialog = FontDialog(self.program)
        dialog.choose_reading(1)
        dialog.close()
        self.assertNotEqual(self.first_line(), lines[0])
        dialog = FontDialog(self.program)
        dialog.choose_reading(0)
        dialog.close()
        self.assertEqual(self.first_line(), lines[0])
        self.assertEqual(self.marked_text(), mark)
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
