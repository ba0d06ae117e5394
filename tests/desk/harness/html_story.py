"""Stories of HTML books: a page takes its time, and its title says when it is there."""
import os
import shutil
import unittest

from harness.clipboard import copied
from harness.color_dialog import ColorDialog
from harness.dialog import Dialog
from harness.story import Story
from harness.text_view import settled_strip, top_strip
from harness.wait import wait_for
from harness.wine import ON_WINE, PROGRAM

PLACE_HEIGHT = 80  # pixels, with one whole line of enlarged paragraphs at least
SLACK = 2  # pixels: the record has whole pixels of a page at normal size, a zoomed page others
MODULE = "libnorvaset-html.so"
PAGE = ('<!DOCTYPE html>\n<html><head><meta charset="utf-8"><title>{title}</title>{head}</head>\n'
        "<body>\n{body}</body></html>\n")


def write_page(path, body, title="Lanterns", head=""):
    with open(path, "w", encoding="utf-8") as file:
        file.write(PAGE.format(title=title, head=head, body=body))
    return path


def paragraphs(lines):
    return "".join(f"<p>{line}</p>\n" for line in lines)


# Pages are shown by the program itself: Wine has no engine, and on Linux it is told to do without.
OWN_VIEW = ON_WINE or "NORVASET_OWN_VIEW" in os.environ
needs_engine = unittest.skipIf(OWN_VIEW, "the page is shown without an engine")


class HtmlStory(Story):
    def reader(self, *arguments, **options):
        reader = super().reader(*arguments, **options)
        if not OWN_VIEW:
            shutil.copy(os.path.join(os.path.dirname(PROGRAM), MODULE), reader.folder)
        return reader

    def open(self, path, title, reader=None):
        reader = reader or self.reader()
        reader.start(path)
        reader.wait_for_book(title)
        return reader

    def lines_on_top(self, reader):
        """What `wait_for_place` takes, once it stays."""
        return settled_strip(reader, PLACE_HEIGHT)

    def wait_for_place(self, reader, strip):
        """The first whole line of this place where it was, but for the slack."""
        top, bottom = first_line(strip)
        line = strip.crop(0, top, strip.width, bottom)

        def shows_it():
            now = top_strip(reader.picture(), PLACE_HEIGHT + SLACK)
            return now and any(
                now.crop(0, place, now.width, place + line.height).looks_like(line)
                for place in range(max(0, top - SLACK), top + SLACK + 1)
                if place + line.height <= now.height)
        wait_for(shows_it, "the same lines at the top as before")

    def whole_text(self, reader):
        """As it is copied, once the page is there; a page of no text never is."""
        return copied(reader, "ctrl+a", "ctrl+c")

    def choose(self, menu, *keys):
        self.program.open_menu(menu)
        self.program.key(*keys)
        wait_for(lambda: not self.program.popups(), "the menu to close")

    def find(self, text):
        dialog = Dialog(self.program, "Find", "ctrl+f")
        dialog.type(text)
        dialog.close()

    def pick_background(self, reader, color):
        reader.open_menu("v")
        dialog = ColorDialog(reader, "Background Color...", "b")
        dialog.set(*bytes.fromhex(color[1:]))
        dialog.close()

    def record(self, reader, path):
        reader.key("Escape")
        return self.book_record(reader, path)


def first_line(strip):
    """The rows of the first line that is not cut; all of a picture that is higher."""
    plain = [strip.crop(0, y, strip.width, y + 1).is_plain() for y in range(strip.height)]
    top = next((y for y in range(1, strip.height) if plain[y - 1] and not plain[y]), 0)
    return top, next((y for y in range(top, strip.height) if plain[y]), strip.height)
