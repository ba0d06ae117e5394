"""A dialog of colours, by its fields: the system's on Windows, Qt's on Linux."""
from harness.dialog import Dialog
from harness.wine import ON_WINE


class ColorDialog(Dialog):
    def set(self, red, green, blue):
        if ON_WINE:
            for key, value in (("alt+r", red), ("Tab", green), ("Tab", blue)):
                self.key(key)
                self.type(value)
        else:
            self.key("alt+h", "ctrl+a")
            self.type(f"#{red:02x}{green:02x}{blue:02x}")
