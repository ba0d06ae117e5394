"""Dragging addresses of files out of another program's window and dropping them somewhere."""
import os
import subprocess
import unittest

from harness.wait import wait_for

DRAG_SOURCE = os.environ.get("DRAG_SOURCE", "")
needs_drag_source = unittest.skipUnless(
    os.access(DRAG_SOURCE, os.X_OK),
    "the window to drag from is not built: the preset linux makes it")


class Drag:
    """The target asks for the addresses after the drop: so `stop` comes when it has them."""

    def __init__(self, screen, addresses_file):
        self.screen, self.heard = screen, ""
        self.process = subprocess.Popen([DRAG_SOURCE, addresses_file], env=screen.environment,
                                        stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        os.set_blocking(self.process.stdout.fileno(), False)

    def stop(self):
        self.screen.xdotool("mouseup", 1)
        self.process.kill()
        self.process.wait()
        self.process.stdout.close()

    def says(self, word):
        self.heard += (self.process.stdout.read() or b"").decode()
        return word in self.heard.split()

    def drop_at(self, x, y):
        """Lets go at this point of the screen, once what is there says that it wants the files."""
        self._begin()

        def move_until_welcome():
            for offset in (0, 3, 6):
                self.screen.xdotool("mousemove", x + offset, y + offset)
            return self.says("welcome")
        wait_for(move_until_welcome, "the target to want the files")
        self.screen.xdotool("mouseup", 1)
        wait_for(lambda: self.says("dropped"), "the drop")

    def _begin(self):
        window = wait_for(lambda: self.screen.xdotool(
            "search", "--onlyvisible", "--all", "--pid", self.process.pid, "--name",
            "Drag source").strip(), "the window to drag from")

        def move_until_dragging():
            self.screen.xdotool("mousemove", "--window", window, 60, 60, "mousedown", 1)
            self.screen.xdotool("mousemove", "--window", window, 80, 80)
            return self.says("dragging")
        wait_for(move_until_dragging, "the drag to begin")


def drop(story, *addresses, at=None):
    """Drops these addresses of files on the middle of the story's program, or at this point of it."""
    listed = story.path("addresses")
    with open(listed, "wb") as file:
        file.write(b"".join(address + b"\r\n" for address in addresses))
    left, top, width, height = story.program.rectangle()
    drag = Drag(story.screen, listed)
    story.addCleanup(drag.stop)
    x, y = at or (width // 2, height // 2)
    drag.drop_at(left + x, top + y)
