"""View > Font, by the keys of its own controls: the dialog is the system's on Windows, ours on Linux."""
from harness.dialog import Dialog
from harness.wine import ON_WINE

WINDOWS = {"face": ["alt+f"], "style": ["alt+y"], "size": ["alt+s"], "strikeout": ["alt+k"],
           "underline": ["alt+u"], "readings": ["alt+b"], "script": ["alt+c", "Tab"]}  # which has another key under Wine
LINUX = {"face": ["alt+f"], "style": ["alt+s"], "size": ["alt+z"], "strikeout": ["alt+k"],
         "underline": ["alt+u"], "script": ["alt+r"],
         "readings": ["alt+b"]}
KEYS = WINDOWS if ON_WINE else LINUX


class FontDialog(Dialog):
    def __init__(self, reader):
        reader.open_menu("v")
        super().__init__(reader, "Font...", "f")

    def press(self, control, *keys):
        """The control's own keys, and these in it."""
        self.key(*KEYS[control], *keys)

    def choose_face(self, name):
        """By its first word only in ours, where a blank would open the list."""
        self.press("face")
        self.type(name if ON_WINE else name.split()[0])

    def set_size(self, size):
        self.press("size", "ctrl+a")
        self.type(size)

    def choose_reading(self, row):
        """Of the list of the book's lines, from 0."""
        self.press("readings", "Home", *["Down"] * row)

    def choose_cyrillic(self, attempt):
        """A list of the system goes to the next entry of the letter; ours knows the whole word."""
        self.press("script")
        self.type("c" * attempt if ON_WINE else "cyr")
