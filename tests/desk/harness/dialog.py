"""A dialog of the reader, driven by the keyboard."""
from harness.wait import wait_for


class Dialog:
    def __init__(self, reader, title, *keys):
        """The dialog of this title, which the keys open; without keys it is open."""
        self.reader = reader
        if keys:
            reader.key(*keys)
        self.window = wait_for(lambda: reader.window_named(title), f"the dialog {title}")
        wait_for(lambda: reader.is_active(self.window), "the dialog to have the keyboard")

    def key(self, *keys):
        self.reader.key(*keys)

    def type(self, text):
        self.reader.screen.xdotool("type", "--delay", 0, text)

    def close(self, key="Return"):
        self.key(key)
        self.wait_until_closed()

    def wait_until_closed(self):
        wait_for(lambda: not self.reader.window_exists(self.window), "the dialog to close")
        wait_for(self.reader.is_active, "the reader to have the keyboard again")
