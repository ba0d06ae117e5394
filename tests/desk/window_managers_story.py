"""Window managers that tile, and a screen without any: the book fills what the window is given."""
from harness import books
from harness.dialog import Dialog
from harness.screen import I3, NO_WINDOW_MANAGER, RATPOISON, SIZE
from harness.story import Story, main
from harness.wait import wait_for

NARROWEST = SIZE[0] * 9 // 10  # a window that fills the screen, but for its frame
EDGE = 8                       # pixels; nearer to the window's edge there may be a frame
DARKEST_OF_A_BAR = 120


class Somewhere(Story):
    def setUp(self):
        self.book = books.write_book(self.path("lanterns.txt"), books.long_paragraphs("latin", 400))
        self.program = self.reader().start(self.book)
        self.program.wait_until_settled()

    def is_filled(self, reader=None):
        """The scroll bar stands at the right edge, the status bar at the lower one."""
        picture = (reader or self.program).picture()
        right = [picture.pixel(picture.width - EDGE, picture.height * part // 8)
                 for part in range(3, 7)]
        below = [picture.pixel(picture.width * part // 8, picture.height - EDGE)
                 for part in range(1, 5)]
        return all(DARKEST_OF_A_BAR < value < 255 for colour in right + below for value in colour)

    def wait_until_filled(self, reader=None):
        wait_for(lambda: self.is_filled(reader), "a window that is filled")

    def stored(self, *keys):
        return [self.program.data().value("Default", key) for key in keys]

    def come_back(self):
        """Closes, starts again, and finds window and book as they were."""
        self.program.wait_until_settled()
        before = self.program.rectangle()
        self.program.close()
        placement = self.stored("Left", "Top", "Width", "Height", "State")
        self.program.start()
        self.program.wait_for_book(self.book)
        wait_for(lambda: self.program.rectangle() == before, f"the window to be at {before}")
        self.wait_until_filled()
        self.program.wait_until_settled()
        self.program.close()
        self.assertEqual(self.stored("Left", "Top", "Width", "Height", "State"), placement)
        return placement


class Tiled(Somewhere):
    def fills_screen(self):
        return self.program.rectangle()[2] >= NARROWEST

    def test_it_fills_its_tile(self):
        wait_for(self.fills_screen, "the tile")
        self.wait_until_filled()
        *_, width, height, state = self.come_back()
        self.assertGreaterEqual(int(width), NARROWEST)
        self.assertGreaterEqual(int(height), SIZE[1] * 9 // 10)
        self.assertEqual(state, "0")

    def test_its_tile_becomes_smaller_and_larger(self):
        wait_for(self.fills_screen, "the tile")
        self.split()
        other = self.reader("other").start(self.book)
        wait_for(lambda: not self.fills_screen(), "the smaller tile")
        self.wait_until_filled()
        self.wait_until_filled(other)
        self.unsplit(other)
        wait_for(self.fills_screen, "the larger tile")
        self.wait_until_filled()
        find = Dialog(self.program, "Find", "ctrl+f")
        self.assertLess(self.screen.output("xwininfo", "-id", str(find.window)).find("IsUnMapped"), 0)
        find.close("Escape")
        self.wait_until_filled()
        self.program.close()


class I3Story(Tiled):
    window_manager = I3

    def split(self):
        """This one does it by itself."""

    def unsplit(self, other):
        other.close()
        wait_for(self.program.is_active, "the keyboard")

    def test_all_of_the_screen(self):
        self.program.key("super+f")
        wait_for(lambda: self.program.rectangle() == (0, 0, *SIZE), "all of the screen")
        self.wait_until_filled()
        self.program.close()
        self.assertEqual(self.stored("State"), ["2"])
        self.program.start()
        wait_for(self.fills_screen, "the tile")
        self.wait_until_filled()
        self.program.close()


class RatpoisonStory(Tiled):
    window_manager = RATPOISON

    def split(self):
        self.screen.output("ratpoison", "-c", "hsplit")
        wait_for(lambda: not self.fills_screen(), "the split")
        self.screen.output("ratpoison", "-c", "focus")

    def unsplit(self, other):
        other.close()
        self.screen.output("ratpoison", "-c", "select Norvaset")
        self.screen.output("ratpoison", "-c", "only")
        wait_for(self.program.is_active, "the keyboard")


class NoManager(Somewhere):
    window_manager = NO_WINDOW_MANAGER

    def test_it_is_where_it_was(self):
        self.wait_until_filled()
        self.screen.xdotool("windowmove", self.program.window, 150, 90)
        self.program.resize(640, 480)
        self.wait_until_filled()
        self.program.finish_keys()
        self.assertEqual(self.come_back(), ["150", "90", "640", "480", "0"])

    def test_keys_come_back_from_a_dialog(self):
        find = Dialog(self.program, "Find", "ctrl+f")
        find.close("Escape")
        self.program.press("Next", 2)
        self.program.close()
        self.assertGreater(self.book_record(self.program, self.book)["LastPos"], 0)

    def test_states_that_nobody_gives(self):
        self.program.close()
        text = self.program.data_bytes().decode()
        for state in ("2", "1"):
            with self.subTest(state=state):
                with open(self.program.data_path, "wb") as file:
                    file.write(text.replace("State=0", f"State={state}").encode())
                self.program.start()
                self.wait_until_filled()
                self.program.close()
                self.assertEqual(self.stored("State"), [state])


del Somewhere, Tiled  # base classes, no stories

if __name__ == "__main__":
    main("i3", "ratpoison")
