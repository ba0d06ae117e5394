"""A window without a book says how to open one."""
import os
import unittest

from harness.story import Story, main
from harness.wait import wait_for
from harness.words import can_read, place_of, squeezed, words_shown

HOW = squeezed("Open a book with")  # what is safely read of the line
WELCOME = squeezed("welcome book")
LINK_BELOW = 22  # pixels; a line and a half of the system's font at 96 dpi


@unittest.skipUnless(can_read(), "no program that reads the screen is installed")
class EmptyView(Story):
    def wait_for_words(self, reader, shown, hidden=()):
        def are_so():
            words = words_shown(self.screen, reader.window)
            return all(each in words for each in shown) and not any(each in words for each in hidden)
        wait_for(are_so, f"{shown} without {hidden}")

    def test_a_first_run_has_the_welcome_book(self):
        reader = self.reader().start()
        welcome = os.path.join(reader.folder, "Welcome.txt")
        self.wait_for_words(reader, [HOW, WELCOME])
        left, top, width, height = reader.rectangle()
        y = wait_for(lambda: place_of(self.screen, reader.window, "Open"), "the line")[1]
        self.assertLess(abs(y - height // 2), height // 8)
        x, y = width // 2, y + LINK_BELOW
        reader.click(left + x, top + y - 100)  # beside it: nothing
        reader.finish_keys()
        self.assertEqual(reader.title(), "Norvaset [Default]")
        reader.click(left + x, top + y)
        reader.wait_for_book(welcome)
        self.wait_for_words(reader, [squeezed("This is a short book")], [WELCOME])
        reader.press("Next", 1)
        reader.close()
        self.assertEqual(reader.data().paths(), [welcome])
        # Now it is a book of the list, and comes back as any other.
        reader.start()
        reader.wait_for_book(welcome)
        reader.close()

    def test_by_the_keyboard_and_only_once(self):
        reader = self.reader().start()
        reader.key("Return")
        reader.wait_for_book(os.path.join(reader.folder, "Welcome.txt"))
        # Whose only book has gone has read one before.
        reader.close()
        os.remove(os.path.join(reader.folder, "Welcome.txt"))
        reader.start()
        self.wait_for_words(reader, [HOW], [WELCOME])
        reader.key("Return")
        reader.finish_keys()
        self.assertEqual(reader.title(), "Norvaset [Default]")
        reader.close()

    def test_an_empty_book_is_no_empty_view(self):
        empty = self.path("empty.txt")
        with open(empty, "wb"):
            pass
        reader = self.reader().start(empty)
        reader.wait_for_book(empty)
        reader.wait_until_idle()
        self.assertNotIn(HOW, words_shown(self.screen, reader.window))
        reader.close()

    def test_a_narrow_window(self):
        reader = self.reader().start()
        reader.resize(300, 400)
        self.wait_for_words(reader, [squeezed("Open a book with"), squeezed("welcome")])
        reader.close()


if __name__ == "__main__":
    main()
