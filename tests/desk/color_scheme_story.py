"""The desktop's dark or light scheme: windows and dialogs follow it, the paper is the reader's."""
import os
import subprocess
import sys

from harness import books
from harness.dialog import Dialog
from harness.picture import grab
from harness.session_bus import BUS, SessionBus
from harness.story import SKIPPED, Story, main
from harness.text_view import view_top
from harness.wait import wait_for

PYTHON = "/usr/bin/python3"  # to which Debian's bindings belong
PORTAL = os.path.join(os.path.dirname(__file__), "harness", "portal.py")
DARK = 100  # of 255: a dark window is darker, a light one much lighter


def can_run():
    asked = subprocess.run([PYTHON, "-c", "import gi; gi.require_version('Gio', '2.0')"],
                           capture_output=True, check=False) if os.path.exists(PYTHON) else None
    return asked and asked.returncode == 0


class ColorScheme(Story):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.bus = SessionBus(cls.screen)

    @classmethod
    def tearDownClass(cls):
        cls.bus.stop()
        super().tearDownClass()

    def setUp(self):
        self.book = books.write_book(self.path("quay.txt"), books.lines("latin", 300))
        self.program = self.reader()

    def start(self, scheme):
        self.portal = subprocess.Popen([PYTHON, PORTAL, scheme], env=self.screen.environment,
                                       stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self.addCleanup(self.end_portal)
        self.assertEqual(self.portal.stdout.readline(), "ready\n")
        self.program.start(self.book)
        self.program.wait_for_book(self.book)

    def end_portal(self):
        self.portal.stdin.close()
        self.portal.stdout.close()
        self.portal.wait()

    def choose(self, scheme):
        self.portal.stdin.write(scheme + "\n")
        self.portal.stdin.flush()

    def brightness(self, window):
        """Of most of a window's lower edge, where there is no text view."""
        picture = grab(self.screen, window)
        row = sorted(picture.row(picture.height - 4)) if picture else [0]
        return row[len(row) // 2]

    def wait_for_scheme(self, dark):
        window = self.program.window
        wait_for(lambda: (self.brightness(window) < DARK) == dark, "the window's colours")
        variant = '"dark"' if dark else '"light"'
        wait_for(lambda: variant in self.program.property("_GTK_THEME_VARIANT"), "the title bar")

    def paper(self):
        picture = self.program.picture()
        return picture.pixel(picture.width - 60, (view_top(picture) or 60) + 4)

    def test_dark_from_the_start_and_light_later(self):
        self.start("dark")
        self.wait_for_scheme(dark=True)
        self.assertEqual(self.paper(), b"\xff\xff\xff")
        for title, keys in (("Find", ["ctrl+f"]), ("Open File", ["ctrl+o"])):
            dialog = Dialog(self.program, title, *keys)
            wait_for(lambda: self.brightness(dialog.window) < DARK, f"a dark dialog {title}")
            self.assertIn('"dark"', self.program.property("_GTK_THEME_VARIANT", dialog.window))
            dialog.close("Escape")
        self.choose("light")
        self.wait_for_scheme(dark=False)
        self.program.close()

    def test_light_from_the_start_and_dark_later(self):
        self.start("none")
        wait_for(lambda: self.brightness(self.program.window) > DARK, "a light window")
        self.choose("dark")
        self.wait_for_scheme(dark=True)
        self.program.close()


if __name__ == "__main__":
    if not can_run():
        print("skipped; not found: the bindings of Debian's Python")
        sys.exit(SKIPPED)
    main(BUS)
