"""On Wayland as a person goes: keys, mouse, dialogs, clipboard, a drop, a second start, finer screens."""
import os
import subprocess
import unittest

from harness import books
from harness.dialog import Dialog
from harness.drag import DRAG_SOURCE
from harness.story import Story, main
from harness.sway import SIZE, TOOLS, SwayReader, SwayScreen
from harness.wait import wait_for

BLACK, WHITE = b"\0\0\0", b"\xff\xff\xff"
CORNER = 0, 0


class WaylandWalk(Story):
    kind_of_reader = SwayReader

    @classmethod
    def make_screen(cls, folder):
        return SwayScreen(folder)

    def take_picture(self, path):
        self.screen.output("grim", path)

    def setUp(self):
        self.lanterns, self.quay = (
            books.write_book(self.path(name), books.lines("latin", 600))
            for name in ("lanterns.txt", "quay.txt"))
        self.program = self.reader()
        self.screen.hands.move(*CORNER)  # pictures show it

    def page(self):
        """What is in the middle of the window, without its bars."""
        left, top, width, height = self.program.rectangle()
        shown = wait_for(self.screen.picture, "a picture")
        scale = shown.width / SIZE[0]
        return shown.crop(*(int(scale * side) for side in (
            left + 10, top + 40, left + width - 40, top + height - 40)))

    def wait_for_page(self, condition, what):
        return wait_for(lambda: (page := self.page()) and condition(page) and page, what)

    def is_page_at_edge(self):
        """Whether a page is as wide as the screen."""
        shown = self.screen.picture()
        return shown and shown.pixel(20, shown.height // 2) == WHITE

    def page_at_rest(self):
        """The same twice: all that was asked for is drawn."""
        pages = [self.page()]

        def same_again():
            pages.append(self.page())
            return pages[-1].looks_like(pages[-2])
        wait_for(same_again, "the page to come to rest")
        return pages[-1]

    def size(self):
        return self.program.rectangle()[2:]

    def test_open_by_the_dialog_read_find_copy_and_come_back(self):
        self.program.start()
        dialog = Dialog(self.program, "Open File", "ctrl+o")
        self.screen.fill_clipboard(self.lanterns)
        dialog.key("ctrl+v")
        dialog.close()
        self.program.wait_for_book(self.lanterns)
        first = self.wait_for_page(lambda page: BLACK in page.pixels, "the book's letters")
        self.program.key("Next", "Next")
        self.wait_for_page(lambda page: not page.looks_like(first), "another page")
        find = Dialog(self.program, "Find", "ctrl+f")
        self.screen.fill_clipboard("00300")
        find.key("ctrl+v")
        find.close()
        self.program.key("ctrl+c")
        wait_for(lambda: self.screen.clipboard() == "00300", "the copy")

        self.program.key("Left")  # nothing is selected any more
        self.screen.tell(f"[con_id={self.program.window['id']}] resize set 700 600")
        wait_for(lambda: 650 < self.size()[0] <= 700, "another size")
        size = self.size()
        self.program.key("F11")
        # Its size is the compositor's word; what is drawn says that the program knows.
        wait_for(lambda: self.size() == SIZE and self.is_page_at_edge(), "the full screen")
        self.program.key("Escape")
        wait_for(lambda: self.size() == size and not self.is_page_at_edge(), "the window again")
        found = self.page_at_rest()
        self.program.close()
        # Its place is the compositor's own affair, its size is not.
        for _ in range(2):
            self.program.start()
            wait_for(lambda: self.size() == size, "the size of before")
            self.wait_for_page(lambda page: page.looks_like(found), "the page of before")
            self.program.close()

    def test_a_size_given_at_the_start_comes_back(self):
        self.program.start()
        self.screen.tell(f"[con_id={self.program.window['id']}] resize set 700 600")
        wait_for(lambda: 650 < self.size()[0] <= 700, "another size")
        size = self.size()
        self.program.close()
        self.program.start()
        wait_for(lambda: self.size() == size, "the size of before")
        self.program.close()

    def test_by_the_mouse(self):
        self.program.start(self.lanterns)
        left, top, width, height = self.program.rectangle()
        page = self.wait_for_page(lambda page: BLACK in page.pixels, "the book's letters")
        self.screen.hands.move(left + width // 2, top + height // 2)
        self.screen.hands.wheel(3)
        self.screen.hands.move(*CORNER)
        self.wait_for_page(lambda now: not now.looks_like(page), "the text to move")
        self.program.key("ctrl+Home")
        page = self.wait_for_page(lambda now: now.looks_like(page), "the beginning again")
        # The menu is where the mouse is: its line Select All, then Copy by its letter.
        self.program.click(left + width // 2, top + height // 2, button=3)
        self.wait_for_page(lambda now: not now.looks_like(page), "the context menu")
        self.program.key("a")
        self.wait_for_page(lambda now: now.coloured() > width, "the whole book selected")
        self.program.key("ctrl+c")
        wait_for(lambda: self.screen.clipboard() == "\n".join(books.lines("latin", 600)) + "\n",
                 "the whole book copied")
        self.drop(self.quay, left + width // 2, top + height // 2)
        self.program.wait_for_book(self.quay)
        self.program.close()
        self.assertEqual(self.program.data().paths(), [self.quay, self.lanterns])

    def drop(self, path, x, y):
        listed = self.path("addresses")
        with open(listed, "w", encoding="ascii") as file:
            file.write(f"file://{path}\r\n")
        source = subprocess.Popen([DRAG_SOURCE, listed], env=self.screen.environment,
                                  stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        try:
            os.set_blocking(source.stdout.fileno(), False)
            self.drag_from(source, x, y)
        finally:
            source.kill()
            source.wait()
            source.stdout.close()

    def drag_from(self, source, x, y):
        hands, heard = self.screen.hands, []

        def window():
            return next((window for window in self.screen.windows() if window["pid"] == source.pid), None)

        def move_until(word, *places):
            def moved():
                for place in places:
                    hands.move(*place)
                heard.append((source.stdout.read() or b"").decode())
                return word in "".join(heard).split()
            wait_for(moved, f"the drag to be {word}")
        wait_for(window, "the window to drag from")
        self.screen.tell(f"[con_id={window()['id']}] move position 0 0")
        wait_for(lambda: window()["rectangle"][0] < 10, "that window in the corner")
        hands.move(60, 80)
        hands.button(True)
        move_until("dragging", (70, 90), (80, 100))
        move_until("welcome", (x, y), (x + 3, y + 3))
        hands.button(False)
        move_until("dropped")

    def test_a_second_start_comes_to_the_front(self):
        self.program.start(self.lanterns)
        other = self.reader("other").start(self.quay)
        other.wait_for_book(self.quay)
        self.assertFalse(self.program.is_active())
        # With what a launcher gives; then without, and with another one's: nothing may break.
        for variables in ({"XDG_ACTIVATION_TOKEN": self.screen.token()}, {},
                          {"XDG_ACTIVATION_TOKEN": "another one's"}):
            with self.subTest(**variables):
                other.activate()
                self.program.variables = variables
                self.assertEqual(self.program.launch(self.quay).wait(30), 0)
                self.program.wait_for_book(self.quay)
                if variables and "other" not in variables["XDG_ACTIVATION_TOKEN"]:
                    wait_for(self.program.is_active, "the first one to have the keyboard")
                self.assertEqual(self.program.launch(self.lanterns).wait(30), 0)
                self.program.wait_for_book(self.lanterns)
        other.close()
        self.program.close()

    def test_finer_screens(self):
        self.addCleanup(self.screen.scale, 1)
        ends = []
        for scale in (1, 1.25, 1.5, 2):
            with self.subTest(scale=scale):
                self.screen.scale(scale)
                self.screen.hands.move(*CORNER)
                self.program.start(self.lanterns)
                self.program.wait_for_book(self.lanterns)
                # As large for the eye: lines end at the same part of the window.
                ends.append(end_of_lines(self.wait_for_page(
                    lambda page: abs(end_of_lines(page) - next(iter(ends), 0.5)) < (0.02 if ends else 0.4),
                    "lines as long as at scale 1")))
                self.program.close()


def end_of_lines(page):
    """The part of the page's width that the longest line takes; 0 while there is none."""
    columns = (row.rfind(BLACK) for row in map(page.row, range(page.height)))
    return max(columns) / len(page.row(0))


if __name__ == "__main__":
    main(*TOOLS)
