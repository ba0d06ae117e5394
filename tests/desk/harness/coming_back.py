"""Reading on in a book, closing, and coming back to the same line."""
import os
import re

from harness.data_file import data_file_bytes, record_line
from harness.story import Story
from harness.text_view import STRIP_HEIGHT, settled_strip, top_strip
from harness.wait import wait_for

COMPARED = 300     # pixels of the top lines when the window has another width
MARGIN_CHANGE = 8  # pixels that the text may stand further left in a narrower window


class ComingBack(Story):
    def prepare(self, reader, path, width=860, height=700, column=True, **fields):
        """A data file that knows the book, with these fields, and the window's size. In a column the
        text stands elsewhere in a window of another width."""
        record = record_line(path, **({"Size": os.path.getsize(path), "Wrap": 1} | fields))
        with open(reader.data_path, "wb") as file:
            look = {} if column else {"mViewColumn": 0}
            file.write(data_file_bytes(record, Left=40, Top=30, Width=width, Height=height, **look))

    def read_on(self, reader, path, pages, slack=0):
        """Goes some pages on and closes; returns the first lines then, with `slack` rows more for a
        first line that is cut."""
        reader.start(path)
        reader.wait_for_book(path)
        first_page = settled_strip(reader)
        reader.press("Next", pages)
        strip = settled_strip(reader, STRIP_HEIGHT + slack)
        top = strip.crop(0, 0, strip.width, STRIP_HEIGHT)
        self.assertFalse(top.looks_like(first_page), "the page did not turn")
        reader.close()
        self.assertGreater(self.book_record(reader, path)["LastPos"], 0)
        return strip

    def come_back(self, reader, path, strip):
        """Starts without arguments and finds `strip` at the top; in a window of another width its
        left part. Closing again keeps the place."""
        place = self.book_record(reader, path)["LastPos"]
        reader.start()
        reader.wait_for_book(path)

        def shows_it():
            now = top_strip(reader.picture(), strip.height)
            return now and _same_top(strip, now)
        wait_for(shows_it, "the same lines at the top as before")
        reader.close()
        self.assertEqual(self.book_record(reader, path)["LastPos"], place)

    def set_size(self, reader, width, height):
        """As if the window had been left with this size."""
        text = reader.data_bytes().decode()
        text = re.sub(r"(?m)^Width=.*?(?=\r)", f"Width={width}", text)
        text = re.sub(r"(?m)^Height=.*?(?=\r)", f"Height={height}", text)
        with open(reader.data_path, "wb") as file:
            file.write(text.encode())


def _same_top(strip, now):
    """Where the strips have slack, the first line may have been cut by the view's edge; then that
    line or the next one is at the top now, and one strip shows the beginning of the other."""
    if now.width != strip.width:
        return any(_same_rows(_part(strip, shift), _part(now)) for shift in range(MARGIN_CHANGE + 1))
    return _same_rows(strip, now)


def _same_rows(strip, now):
    height = STRIP_HEIGHT
    return any(one.crop(0, top, one.width, top + height).looks_like(
                   other.crop(0, 0, other.width, height))
               for one, other in ((strip, now), (now, strip))
               for top in range(one.height - height + 1))


def _part(strip, left=0):
    return strip.crop(left, 0, left + COMPARED, strip.height)
