"""The dialog of File, Open on either system, by its own type box, list, name and button."""
from harness.clipboard import fill
from harness.dialog import Dialog
from harness.picture import grab
from harness.wait import wait_for
from harness.wine import ON_WINE, shown_path

TYPES = ("text", "rich", "page", "all")  # as they stand in the box
KEYS = dict(zip(TYPES, "trha"))

# Where the parts are: a fraction of the dialog's width, and pixels from its top or (negative) its
# lower end.
TYPE_BOX, OPEN_BUTTON, FIRST_FILE = (
    ((0.57, -30), (0.91, -56), (0.26, 41)) if ON_WINE else ((0.5, -27), (0.92, -58), (0.23, 74)))


class OpenDialog(Dialog):
    def __init__(self, reader, title="Open File", *keys):
        """Without keys those that open a book."""
        super().__init__(reader, title, *keys or ["ctrl+o"])

    def choose_type(self, name):
        self.key("alt+t", KEYS[name])

    def pick_type(self, name):
        """With the mouse, from the list that the box drops down."""
        self._click(TYPE_BOX)
        (drop_down,) = wait_for(self.reader.popups, "the types to drop down")
        left, top, width, height = self.reader.rectangle(drop_down)
        row = top + int(height / len(TYPES) * (TYPES.index(name) + 0.5))

        def picked():
            if self.reader.popups():
                self.reader.click(left + width // 2, row)  # not heard as part of a double click
            return not self.reader.popups()
        wait_for(picked, "the types to go")

    def type_box_picture(self):
        """What the box shows, without its frame."""
        picture = wait_for(lambda: grab(self.reader.screen, self.window), "a picture of the dialog")
        row = picture.height + TYPE_BOX[1]
        return picture.crop(int(0.16 * picture.width), row - 7, int(0.55 * picture.width), row + 7)

    def type_name(self, text):
        """Pasted on Linux: while Qt's list of completions comes and goes it loses letters that
        follow each other faster than anybody types."""
        self.key("alt+n", "ctrl+a")
        if ON_WINE:
            self.type(text)
        else:
            fill(self.reader.screen, text)
            self.key("ctrl+v")

    def type_path(self, path):
        self.type_name(shown_path(path))

    def click_first_file(self):
        self._click(FIRST_FILE)

    def wait_until_closed(self):
        """A message about the file may come at once."""
        wait_for(lambda: not self.reader.window_exists(self.window), "the dialog to close")
        wait_for(lambda: self.reader.is_active() or self.reader.message_box(),
                 "the reader or its message to have the keyboard")

    def press_open(self):
        self._click(OPEN_BUTTON)
        self.wait_until_closed()

    def _click(self, place):
        left, top, width, height = self.reader.rectangle(self.window)
        across, down = place
        self.reader.click(left + int(across * width), top + down + (height if down < 0 else 0))
