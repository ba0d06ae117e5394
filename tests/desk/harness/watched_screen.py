"""A screen whose pixels are looked at each millisecond, for what is seen only for a moment."""
import mmap
import os
import struct
import threading

from harness.screen import Screen

INTERVAL = 0.001  # seconds; a screen shows each picture for 16 ms


class WatchedScreen(Screen):
    """The X server keeps its pixels in a file, in the format of xwd."""

    def _spawn(self, command, **options):
        memory = ["-fbdir", self.folder] if command[0] == "Xvfb" else []
        super()._spawn([*command, *memory], **options)

    def watch(self, x, y):
        return Watch(os.path.join(self.folder, "Xvfb_screen0"), x, y)


class Watch:
    """The colours that one pixel has while this is entered, as "rrggbb", each when it changes."""

    def __init__(self, path, x, y):
        with open(path, "rb") as file:
            self.pixels = mmap.mmap(file.fileno(), 0, prot=mmap.PROT_READ)
        header = struct.unpack(">25I", self.pixels[:100])
        header_size, bits, line, colours = header[0], header[11], header[12], header[19]
        self.place = header_size + 12 * colours + y * line + x * bits // 8
        self.colours, self.over = [], threading.Event()
        self.thread = threading.Thread(target=self._watch)

    def __enter__(self):
        self.thread.start()
        return self

    def __exit__(self, *error):
        self.over.set()
        self.thread.join()
        self.pixels.close()

    def _watch(self):
        while not self.over.wait(INTERVAL):
            colour = self.pixels[self.place:self.place + 3][::-1].hex()
            if [colour] != self.colours[-1:]:
                self.colours.append(colour)
