"""Keys while a page has the keyboard: the program's commands come as with a text, and the page only moves."""
from harness import books
from harness.clipboard import copied
from harness.dialog import Dialog
from harness.html_story import SLACK, HtmlStory, paragraphs, write_page
from harness.menu_picture import row_darkness
from harness.picture import grab
from harness.story import main
from harness.text_view import settled_strip
from harness.wait import wait_for

COUNT = 300
LEFT_ALONE = ("F7", "F12", "F10", "ctrl+p", "ctrl+r", "ctrl+u", "ctrl+s", "ctrl+w", "ctrl+t", "ctrl+n",
              "ctrl+shift+i", "BackSpace", "alt+Right", "Escape")  # what browsers do something at
MENUS = "fevbpoh"
FRAME = 40  # pixels
GREYED = 60  # of 255: how much lighter


class HtmlKeys(HtmlStory):
    def setUp(self):
        self.book = write_page(self.path("book.htm"), '<p><a href="#end">to the end</a></p>'
                               + paragraphs(books.lines("latin", COUNT)) + '<p id="end">the end</p>')
        self.program = self.open(self.book, "Lanterns")
        self.top = settled_strip(self.program)

    def wait_for_top(self):
        wait_for(lambda: settled_strip(self.program).looks_like(self.top), "the page's start")

    def wait_until_moved(self, strip):
        wait_for(lambda: not settled_strip(self.program).looks_like(strip), "another place")

    def test_moving(self):
        for there, back in (("Next", "Prior"), ("space", "shift+space"), ("End", "Home"),
                            ("ctrl+End", "ctrl+Home"), ("Down", "Up")):
            with self.subTest(there=there):
                self.program.key(there)
                self.wait_until_moved(self.top)
                self.program.key(back)
                self.wait_for_top()
        self.program.close()

    def test_pressed_while_it_loads(self):
        """From where it was left, as soon as the window has the keyboard."""
        self.program.key("Next")
        self.wait_until_moved(self.top)
        left = settled_strip(self.program)
        self.program.close()
        place = self.book_record(self.program, self.book)["LastPos"]
        self.program.start()
        self.program.key("Next")
        self.wait_until_moved(left)
        self.program.close()
        # The window manager may not yet have taken its frame off the height of the view.
        self.assertAlmostEqual(self.book_record(self.program, self.book)["LastPos"], 2 * place,
                               delta=SLACK + FRAME)

    def test_a_link_and_back(self):
        self.program.key("Tab", "Return")
        self.wait_until_moved(self.top)
        end = settled_strip(self.program)
        self.program.key("alt+Left")
        self.wait_until_moved(end)
        self.program.close()

    def test_menus(self):
        for letter in MENUS:
            with self.subTest(letter=letter):
                self.program.open_menu(letter)
                self.program.close_menu()
                self.program.key("Escape")
        self.program.close()

    def test_commands(self):
        for keys, title in (("F1", "Norvaset Help"), ("ctrl+f", "Find"), ("ctrl+o", "Open.*")):
            with self.subTest(keys=keys):
                Dialog(self.program, title, keys).close("Escape")
        dialog = Dialog(self.program, "Find", "ctrl+f")
        dialog.type("00100")
        dialog.close()
        self.assertEqual(copied(self.program), "00100")
        self.program.key("ctrl+Home", "ctrl+f")
        dialog = Dialog(self.program, "Find")
        dialog.type("lanterns")
        dialog.close()
        found = settled_strip(self.program)
        self.program.key("F3")
        self.wait_until_moved(found)
        self.program.key("F5")
        self.program.wait_for_book("Lanterns")
        self.whole_text(self.program)
        self.program.close()

    def test_what_browsers_do_is_not_done(self):
        for keys in LEFT_ALONE:
            self.program.key(keys)
        self.program.key("Escape", "Escape")
        self.program.finish_keys()
        self.program.key("Escape")
        self.assertEqual(self.program.windows(), [self.program.window])
        self.assertTrue(settled_strip(self.program).looks_like(self.top))
        self.assertTrue(self.whole_text(self.program).startswith("to the end"))
        self.program.close()

    def right_click(self, x, y):
        left, top, _, _ = self.program.rectangle()
        self.screen.xdotool("mousemove", left + x, top + y, "click", 3)
        return wait_for(self.program.popups, "the page's menu")[0]

    def wait_for_copy(self, menu, offered):
        """Copy, the first item, is as dark as the second or greyed."""
        def is_so():
            rows = row_darkness(grab(self.screen, menu))
            return len(rows) > 1 and (rows[0] > rows[1] - GREYED) == offered
        wait_for(is_so, f"a menu with Copy {'offered' if offered else 'greyed'}")
        self.program.key("Escape")
        wait_for(lambda: not self.program.popups(), "the menu to close")

    def test_the_pages_menu_offers_copy_for_what_is_selected(self):
        dialog = Dialog(self.program, "Find", "ctrl+f")
        dialog.type("00007")
        dialog.close()
        self.assertEqual(copied(self.program), "00007")
        self.wait_for_copy(self.right_click(200, 500), offered=False)  # which clears it
        self.program.key("ctrl+a")
        self.wait_for_copy(self.right_click(100, 200), offered=True)  # on the selection
        self.program.close()

    def test_the_pages_menu_by_keys_keeps_the_selection(self):
        dialog = Dialog(self.program, "Find", "ctrl+f")
        dialog.type("00007")
        dialog.close()
        self.assertEqual(copied(self.program), "00007")
        for key in ("Menu", "shift+F10"):
            with self.subTest(key=key):
                def open_menu(key=key):
                    self.program.key(key)
                    wait_for(self.program.popups, "the page's menu")
                self.assertEqual(copied(self.program, "c", opening=open_menu), "00007")
                wait_for(lambda: not self.program.popups(), "the menu to close")
        self.program.close()


if __name__ == "__main__":
    main()
