"""Books with Hebrew names in the File menu: folders stand in their order, a title right of its "="."""
import os

from harness.html_story import HtmlStory, write_page
from harness.menu_picture import text_rows
from harness.picture import grab
from harness.story import main
from harness.wait import wait_for

COMMANDS = 4  # of the File menu above the history
CAPTIONS = 26  # pixels from the left; before them are check marks
FOLDERS = "אור" * 6, "ים" * 6
LONGEST_NAME = 100  # pixels, of seven letters; the folders take more
TITLE = "שלום"


class MenuDirections(HtmlStory):
    def history(self):
        """The rows of the File menu, as lists of columns."""
        menu = self.program.open_menu("f")
        picture = wait_for(lambda: grab(self.screen, menu), "a picture of the menu")
        self.program.close_menu()
        rows = text_rows(picture)[COMMANDS:COMMANDS + 3]
        height = min(bottom - top for top, bottom in rows)  # but for what is below the line
        return [[picture.crop(x, top, x + 1, top + height).pixels for x in range(CAPTIONS, picture.width - 4)]
                for top, _ in rows]

    def test_each_part_keeps_its_own(self):
        folder = self.path(os.path.join(*FOLDERS))
        os.makedirs(folder)
        self.program = self.reader()
        for name, title in ((os.path.join(folder, "רוח.htm"), TITLE), (os.path.join(folder, "שמש.htm"), TITLE + "!"),
                            (self.path("a.htm"), "Quay")):
            self.open(write_page(name, "<p>and", title), title, self.program)
            self.program.close()
        self.program.start()
        self.program.wait_for_book("Quay")
        _, with_mark, without = self.history()
        self.program.close()

        # Both are equal but for the file's name, which is the last part.
        start, end = first_difference(with_mark, without), path_end(without)
        self.assertLess(end - start, LONGEST_NAME)
        # The title stands after a gap. Its mark is left of the letters, where it ends.
        titles = [columns[title_start(columns):] for columns in (with_mark, without)]
        width = len(without_margin(titles[1]))
        self.assertLess(first_difference(*titles), width // 2)


def first_difference(one, other):
    return next(i for i, (left, right) in enumerate(zip(one, other)) if left != right)


def without_margin(columns):
    end = max(i for i, column in enumerate(columns) if is_inked(column))
    return columns[:end + 1]


def is_inked(column):
    return column != column[:3] * (len(column) // 3)


def gap(columns):
    """The widest one between inked columns: from the path to the title."""
    inked = [i for i, column in enumerate(columns) if is_inked(column)]
    return max(zip(inked, inked[1:]), key=lambda pair: pair[1] - pair[0])


def path_end(columns):
    return gap(columns)[0]


def title_start(columns):
    return gap(columns)[1]


if __name__ == "__main__":
    main()
