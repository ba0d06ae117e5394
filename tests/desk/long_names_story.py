"""Long paths and names in the menus: elided there, whole in the tip, and nowhere else changed."""
import os

from harness import books
from harness.dialog import Dialog
from harness.open_dialog import OpenDialog
from harness.screen import SIZE
from harness.story import Story, main
from harness.wait import wait_for
from harness.wine import ON_WINE

FRAME = 120  # pixels at most: marks, icons and margins of a menu beside its texts


class LongNames(Story):
    def test_a_book_in_deep_folders(self):
        folder = os.path.join(self.folder, *[letter * 60 for letter in "abc"])
        os.makedirs(folder)
        book = books.write_book(os.path.join(folder, "tides & winds.txt"), books.lines("latin", 50))
        reader = self.reader().start(book)
        reader.wait_for_book(book)
        menu = reader.open_menu("f")
        left, top, width, height = wait_for(lambda: reader.rectangle(menu), "the menu")
        self.assertLess(width, SIZE[0] // 2 + FRAME)
        self.assertGreater(width, SIZE[0] // 3)
        if not ON_WINE:  # the menus of Windows have no tips
            self.screen.xdotool("mousemove", left + 100, top + height - 45)
            wait_for(lambda: len(reader.popups()) == 2, "the tip")
        reader.close_menu()
        # It is the same book for all that.
        reader.open_menu("f")
        reader.key("Up", "Up", "Return")
        wait_for(lambda: not reader.popups(), "the menu to close")
        reader.wait_for_book(book)
        reader.close()
        self.assertEqual(reader.data().paths(), [book])

    def test_a_path_longer_than_a_dialog_takes(self):
        folder = os.path.join(self.folder, *[letter * 90 for letter in "abcd"])
        os.makedirs(folder)
        book = books.write_book(os.path.join(folder, "tides.txt"), books.lines("latin", 50))
        reader = self.reader().start()
        dialog = OpenDialog(reader)
        dialog.type_path(book)
        reader.key("Return")
        if ON_WINE:  # whose dialog says that there is no such file
            message = wait_for(lambda: [window for window in reader.windows() if window not in
                                        (reader.window, dialog.window)], "the message")[0]
            wait_for(lambda: reader.is_active(message), "the message to have the keyboard")
            reader.key("Return")
            wait_for(lambda: reader.is_active(dialog.window), "the dialog to have the keyboard")
            reader.key("Escape")
            dialog.wait_until_closed()
        else:
            reader.wait_for_book(book)
        reader.close()
        # Handed over by a shell it is opened on either system.
        reader.start(book)
        reader.wait_for_book(book)
        # The dialog begins in the book's folder, or in the nearest one above that it can take.
        Dialog(reader, "Open File", "ctrl+o").close("Escape")
        reader.close()
        self.assertEqual(reader.data().paths(), [book])

    def test_a_profile_with_a_long_name(self):
        reader = self.reader().start()
        reader.open_menu("p")
        name = "Ann-" + "and-Bob-" * 30
        dialog = Dialog(reader, "Add New...", "n")
        dialog.type(name)
        dialog.close()
        wait_for(lambda: f"[{name}]" in reader.title(), "the profile")
        menu = reader.open_menu("p")
        width = wait_for(lambda: reader.rectangle(menu), "the menu")[2]
        self.assertLess(width, SIZE[0] // 2 + FRAME)
        self.assertGreater(width, SIZE[0] // 3)
        reader.close_menu()
        reader.close()
        self.assertIn(name, [value for _, value in reader.data().sections["mProfileList"]])


if __name__ == "__main__":
    main()
