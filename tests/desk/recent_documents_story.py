"""The desktop's list of recent documents has the books that were opened, unless it keeps none."""
import glob
import os
import subprocess
import unittest

from harness import books
from harness.open_dialog import OpenDialog
from harness.session_bus import BUS, SessionBus
from harness.story import Story, main
from harness.wait import wait_for
from harness.wine import ON_WINE

PYTHON = "/usr/bin/python3"  # to which Debian's bindings belong
PORTAL = os.path.join(os.path.dirname(__file__), "harness", "portal.py")
RECENT = "wine/drive_c/users/*/AppData/Roaming/Microsoft/Windows/Recent/*.lnk"


def can_stand_in_for_the_portal():
    if ON_WINE or not os.path.exists(PYTHON):
        return False
    return subprocess.run([PYTHON, "-c", "import gi; gi.require_version('Gio', '2.0')"],
                          capture_output=True, check=False).returncode == 0


class RecentDocuments(Story):
    def setUp(self):
        self.books = [books.write_book(self.path(name), books.lines("latin", 50))
                      for name in ("lanterns.txt", "quay & tide.txt", "wind.txt")]
        self.program = self.reader()

    def start(self, book):
        self.program.start(book)
        self.program.wait_for_book(book)

    def open(self, book):
        dialog = OpenDialog(self.program)
        dialog.type_path(book)
        dialog.close()
        self.program.wait_for_book(book)

    def is_listed(self, book):
        if ON_WINE:
            name = os.path.basename(book).rpartition(".")[0]
            return any(os.path.basename(link).startswith(name)
                       for link in glob.glob(os.path.join(self.program.folder, RECENT)))
        try:
            with open(os.path.join(self.program.home, "share/recently-used.xbel"), encoding="utf-8") as file:
                address = "file://" + book.replace(" ", "%20").replace("&", "&amp;")
                return f'href="{address}"' in file.read()
        except FileNotFoundError:
            return False

    def wait_until_listed(self, book):
        wait_for(lambda: self.is_listed(book), f"the desktop to list {book}")

    def test_books_that_are_opened(self):
        self.start(self.books[0])
        self.wait_until_listed(self.books[0])
        self.open(self.books[1])
        self.wait_until_listed(self.books[1])
        self.assertTrue(self.is_listed(self.books[0]))
        self.assertFalse(self.is_listed(self.books[2]))
        self.program.close()

    @unittest.skipUnless(can_stand_in_for_the_portal(), "the desktop's portal is on Linux")
    def test_a_desktop_that_keeps_no_list(self):
        bus = SessionBus(self.screen)
        self.addCleanup(bus.stop)
        portal = subprocess.Popen([PYTHON, PORTAL, "none"], env=self.screen.environment,
                                  stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self.addCleanup(self.end, portal)
        self.assertEqual(portal.stdout.readline(), "ready\n")
        self.tell(portal, "forget")
        self.start(self.books[0])
        self.assertEqual(portal.stdout.readline(), "asked\n")
        self.tell(portal, "remember")
        self.open(self.books[1])
        self.wait_until_listed(self.books[1])
        self.assertFalse(self.is_listed(self.books[0]))
        self.program.close()

    def tell(self, portal, line):
        portal.stdin.write(line + "\n")
        portal.stdin.flush()

    def end(self, portal):
        portal.stdin.close()
        portal.stdout.close()
        portal.wait()


if __name__ == "__main__":
    main(*[] if ON_WINE else [BUS])
