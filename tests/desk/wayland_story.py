"""On Wayland: the reader starts, shows the book, and keeps its size and state."""
import os
import shutil
import sys
import tempfile
import unittest

from harness import books
from harness.data_file import data_file_bytes, record_line
from harness.reader import Reader
from harness.screen import missing_tools
from harness.story import SKIPPED
from harness.wait import wait_for
from harness.wayland import SIZE, TOOLS, WaylandScreen

WHITE = b"\xff\xff\xff"
BESIDE_PAGE, OVER_AND_UNDER_PAGE = 20, 160  # pixels at most; maximised, there is a panel, too
KEYS = ("Left", "Top", "Width", "Height", "State")


class Wayland(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="desk-", dir="/tmp")
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        self.screen = WaylandScreen(self.folder)
        self.addCleanup(self.screen.stop)
        self.book = books.write_book(os.path.join(self.folder, "lanterns.txt"),
                                     books.long_paragraphs("latin", 400))
        program = os.path.join(self.folder, "program")
        os.mkdir(program)
        self.reader = Reader(self.screen, program)
        self.addCleanup(self.reader.clean_up)

    def shown_page(self):
        """Width and height of what is white: the page, without what is around it."""
        picture = self.screen.picture()
        if not picture:
            return 0, 0
        rows = [row for row in map(picture.row, range(picture.height)) if WHITE * 30 in row]
        if not rows:
            return 0, 0
        left = min(row.find(WHITE * 30) for row in rows) // 3
        right = max(row.rfind(WHITE * 30) + 90 for row in rows) // 3
        return right - left, len(rows)

    def read_and_close(self, width, height):
        """In a window of this size, its frame and what is round the page come off it."""
        self.reader.process = self.reader.launch()

        def shows_page():
            shown = self.shown_page()
            return (width - BESIDE_PAGE <= shown[0] <= width
                    and height - OVER_AND_UNDER_PAGE <= shown[1] <= height)
        wait_for(shows_page, "the page")
        self.reader.terminate()
        data = self.reader.data()
        self.assertEqual(data.paths(), [self.book])
        return tuple(int(data.value("Default", key)) for key in KEYS)

    def test_size_and_state(self):
        for placement, width, height in (
                ((300, 200, 700, 500, 0), 700, 500),
                ((5000, 200, 900, 640, 0), 900, 640),  # no place is known to be off the screen
                ((300, 200, 700, 500, 2), *SIZE)):
            with self.subTest(placement=placement):
                with open(self.reader.data_path, "wb") as file:
                    file.write(data_file_bytes(record_line(self.book, Wrap=1),
                                               **dict(zip(KEYS, placement))))
                for _ in range(2):  # a place that it does not know is left as it stands
                    self.assertEqual(self.read_and_close(width, height), placement)


if __name__ == "__main__":
    missing = missing_tools(TOOLS)
    if missing:
        print("skipped; not found:", ", ".join(missing))
        sys.exit(SKIPPED)
    unittest.main(verbosity=2)
