"""The window comes back where it was."""
import re
import unittest

from harness.screen import SIZE
from harness.story import Story, main
from harness.wait import wait_for
from harness.wine import ON_WINE

NOT_WINES = "the window manager does not hear from Wine of a place for later"
WINDOWS_FRAME = 4, 23, 4, 4  # pixels at 96 dpi: left, top, right, bottom
MAXIMISED = "_NET_WM_STATE_MAXIMIZED_VERT, _NET_WM_STATE_MAXIMIZED_HORZ"


class Placement(Story):
    def setUp(self):
        self.program = self.reader().start()

    def place(self, left, top, width, height):
        self.program.wait_until_settled()
        self.program.resize(width, height)
        before = self.program.rectangle()[:2]
        self.screen.xdotool("windowmove", self.program.window, left, top)
        wait_for(lambda: self.program.rectangle()[:2] != before, "the window to move")
        return self.settled_rectangle()

    def settled_rectangle(self):
        """The rectangle that the program knows, too: it has answered since."""
        self.program.finish_keys()
        return self.program.rectangle()

    def frame(self):
        """The rectangle with the frame; for Wine, with the one that Windows would draw."""
        if ON_WINE:
            x, y, width, height = self.program.rectangle()
            left, top, right, bottom = WINDOWS_FRAME
            return x - left, y - top, width + left + right, height + top + bottom
        text = self.program.property("_NET_FRAME_EXTENTS").split("=")[1]
        left, right, top, bottom = map(int, text.split(","))
        x, y, width, height = self.program.rectangle()
        return x - left, y - top, width + left + right, height + top + bottom

    def stored(self):
        data = self.program.data()
        return tuple(int(data.value("Default", key)) for key in ("Left", "Top", "Width", "Height"))

    def wait_for_rectangle(self, rectangle):
        wait_for(lambda: self.program.rectangle() == rectangle,
                 f"the window to be at {rectangle}, not {self.program.rectangle()}")

    def is_maximised(self):
        return MAXIMISED in self.program.property("_NET_WM_STATE")

    def toggle_maximised(self):
        was = self.is_maximised()
        self.program.key("super+m")
        wait_for(lambda: self.is_maximised() != was and self.program.is_waiting(),
                 "the other state")

    def minimise_and_restore(self):
        self.program.minimise()
        wait_for(self.program.is_waiting, "the program to see that")
        self.program.activate()
        wait_for(self.program.is_waiting, "the program to see that")

    def test_moved_and_resized(self):
        for rectangle in ((100, 120, 640, 480), (300, 50, 500, 700), (37, 41, 333, 222)):
            with self.subTest(rectangle=rectangle):
                now, frame = self.place(*rectangle), self.frame()
                self.assertEqual(now[2:], rectangle[2:])
                self.program.close()
                self.assertEqual(self.stored(), frame)
                self.assertEqual(self.program.data().value("Default", "State"), "0")
                self.program.start()
                self.wait_for_rectangle(now)
        self.program.close()
        self.assertEqual(self.stored(), frame)

    def edit(self, *rectangle):
        """By hand, while the program does not run."""
        text = self.program.data_bytes().decode()
        for key, value in zip(("Left", "Top", "Width", "Height"), rectangle):
            text = re.sub(rf"(?m)^{key}=.*?(?=\r)", f"{key}={value}", text)
        with open(self.program.data_path, "wb") as file:
            file.write(text.encode())

    def is_within_reach(self):
        """The whole frame: it is smaller than the screen."""
        left, top, width, height = self.frame()
        return (left >= 0 and top >= 0 and left + width <= SIZE[0] and top + height <= SIZE[1]
                and width >= 160 and height >= 100)

    def test_a_rectangle_that_no_hand_could_reach(self):
        """What the file says stays there until the user moves or sizes the window."""
        self.program.close()
        for rectangle in ((5000, 3000, 700, 500), (300, -2000, 400, 300), (200, 150, 1, 1)):
            with self.subTest(rectangle=rectangle):
                self.edit(*rectangle)
                self.program.start()
                self.program.wait_until_settled()
                wait_for(self.is_within_reach, "the window to come within reach")
                self.toggle_and_close()
                self.assertEqual(self.stored(), rectangle)
        self.program.start()
        moved = self.place(200, 200, 500, 400)
        frame = self.frame()
        self.program.close()
        self.assertEqual(self.stored(), frame)
        self.program.start()
        self.wait_for_rectangle(moved)
        self.program.close()

    def toggle_and_close(self):
        """Its place is the same after it was minimised and, where the story can, maximised."""
        shown = self.program.rectangle()
        self.minimise_and_restore()
        if not ON_WINE:
            self.toggle_maximised()
            self.toggle_maximised()
        self.wait_for_rectangle(shown)
        self.settled_rectangle()
        self.program.close()

    def test_many_starts_do_not_move_it(self):
        now = self.place(200, 200, 500, 400)
        for _ in range(4):
            self.program.close()
            self.program.start()
            self.wait_for_rectangle(now)
        self.program.close()

    def test_closed_right_after_the_start(self):
        now = self.place(200, 200, 500, 400)
        self.program.close()
        for _ in range(4):
            self.program.process = self.program.launch()
            self.program.window = wait_for(self.program.main_window, "the window")
            self.program.terminate()
        self.program.start()
        self.wait_for_rectangle(now)
        self.program.close()

    @unittest.skipIf(ON_WINE, NOT_WINES)
    def test_maximised(self):
        normal, frame = self.place(150, 90, 600, 500), self.frame()
        self.toggle_maximised()
        self.program.close()
        self.assertEqual(self.program.data().value("Default", "State"), "2")
        self.assertEqual(self.stored(), frame)
        self.program.start()
        wait_for(self.is_maximised, "the maximised window")
        self.toggle_maximised()
        self.wait_for_rectangle(normal)
        self.program.close()
        self.assertEqual(self.stored(), frame)

    @unittest.skipUnless(ON_WINE, "screens here have 96 dpi; Wine takes any for its own")
    def test_at_120_dpi(self):
        self.program.close()
        self.program = self.reader("large", dots_per_inch=120).start()
        now = self.place(120, 90, 700, 520)
        self.program.close()
        stored = self.stored()
        self.program.start()
        self.wait_for_rectangle(now)
        self.program.close()
        self.assertEqual(self.stored(), stored)

    def test_minimised_and_restored(self):
        normal = self.place(150, 90, 600, 500)
        self.minimise_and_restore()
        self.wait_for_rectangle(normal)
        self.program.close()
        self.assertEqual(self.program.data().value("Default", "State"), "0")

    @unittest.skipIf(ON_WINE, NOT_WINES)
    def test_closed_while_minimised(self):
        normal, frame = self.place(150, 90, 600, 500), self.frame()
        self.program.minimise()
        self.program.terminate()
        self.assertEqual(self.program.data().value("Default", "State"), "1")
        self.assertEqual(self.stored(), frame)
        self.program.process = self.program.launch()
        self.program.window = int(wait_for(self.any_main_window, "the window").split()[0])
        self.screen.xdotool("windowactivate", self.program.window)
        self.wait_for_rectangle(normal)
        self.program.close()

    def any_main_window(self):
        """Also a minimised one."""
        return self.screen.xdotool("search", "--all", "--pid", self.program.process.pid, "--name",
                                   r"^Norvaset \[")

    def test_minimised_from_maximised(self):
        normal = self.place(150, 90, 600, 500)
        self.toggle_maximised()
        self.minimise_and_restore()
        wait_for(self.is_maximised, "the maximised window")
        self.toggle_maximised()
        self.wait_for_rectangle(normal)
        self.program.close()


if __name__ == "__main__":
    main()
