"""However the program is asked to end, the place is kept."""
import os
import signal
import unittest

from harness import books
from harness.screen import Screen
from harness.story import Story, main
from harness.wait import wait_for
from harness.wine import ON_WINE


class Closing(Story):
    def read_on(self, folder="program"):
        self.texts = books.lines("latin", 3000)
        self.book = books.write_book(self.path("lanterns.txt"), self.texts)
        reader = self.reader(folder).start(self.book)
        reader.wait_for_book(self.book)
        reader.press("Next", 5)
        return reader

    def assert_place_kept(self, reader):
        place = self.book_record(reader, self.book)["LastPos"]
        self.assertIn(books.line_at("\n".join(self.texts), place), self.texts[50:])

    @unittest.skipIf(ON_WINE, "Windows has no signals")
    def test_signals_that_ask_to_end(self):
        for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
            with self.subTest(signal=number):
                reader = self.read_on(f"program{number}")
                reader.process.send_signal(number)
                reader.wait_for_end()
                self.assert_place_kept(reader)

    @unittest.skipIf(ON_WINE, "there the window has a server of its own")
    def test_the_display_goes_away(self):
        """As at the end of a session that ends with its X server, without a word to programs."""
        for number, keys in enumerate(([], ["ctrl+o"], ["alt+f"])):
            with self.subTest(keys=keys):
                folder = self.path(f"screen{number}")
                os.mkdir(folder)
                screen, self.screen = self.screen, Screen(folder)
                try:
                    reader = self.read_on(f"program{number}")
                    shown = len(reader.windows())
                    reader.key(*keys)
                    wait_for(lambda: not keys or len(reader.windows()) > shown, "the dialog or menu")
                    self.screen.end_server()
                    wait_for(lambda: not reader.is_alive(), "the end of the program")
                    self.assert_place_kept(reader)
                finally:
                    self.screen.stop()
                    self.screen = screen

    def test_while_a_menu_is_open(self):
        reader = self.read_on()
        reader.open_menu("f")
        reader.terminate()
        self.assert_place_kept(reader)

    def test_while_a_message_is_shown(self):
        reader = self.read_on()
        reader.terminate()
        reader.process = reader.launch(self.path("missing.txt"))
        reader.wait_for_message()
        reader.terminate()
        self.assert_place_kept(reader)

    def test_while_minimised(self):
        reader = self.read_on()
        reader.minimise()
        reader.terminate()
        self.assert_place_kept(reader)


if __name__ == "__main__":
    main()
