"""The base of the tests of packages: a screen, a folder, a book, and opening it with what was installed."""
import glob
import os
import shutil
import subprocess
import sys
import tempfile
import unittest

from harness.screen import Screen, missing_tools
from harness.wait import wait_for

PACKAGES = os.environ.get("PACKAGES", "")
SKIPPED = 77  # exit code: ctest counts the test as skipped


class PackageTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="package-", dir="/tmp")
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        os.chmod(self.folder, 0o755)
        self.screen = Screen(self.folder)
        self.addCleanup(self.screen.stop)
        self.book = os.path.join(self.folder, "Book.txt")
        with open(self.book, "w", encoding="ascii") as file:
            file.write("It was a bright day.\n")

    def start(self, command, environment):
        """Starts the installed program and waits for its window."""
        process = subprocess.Popen(command, env=self.screen.environment | environment, cwd=self.folder,
                                   stdin=subprocess.DEVNULL)
        self.addCleanup(end, process)
        self.window = wait_for(lambda: self.window_named(r"^Norvaset \["), "the program's window")
        return process

    def close(self, process):
        """As by a click on the window's close button."""
        self.press("alt+F4")
        wait_for(lambda: process.poll() is not None, "the end of the program")
        self.assertEqual(process.returncode, 0)

    def press(self, key):
        self.screen.xdotool("windowactivate", self.window)
        wait_for(lambda: self.screen.xdotool("getactivewindow") == self.window, "the keyboard")
        self.screen.xdotool("key", key)

    def look_into_help(self):
        """F1 finds the help file that was installed. Its window comes to the front: what is pressed before goes there."""
        self.press("F1")
        wait_for(lambda: self.screen.xdotool("getactivewindow") in (self.window_named("^Norvaset Help$") or "none"),
                 "the help in front")

    def window_named(self, pattern):
        return self.screen.xdotool("search", "--onlyvisible", "--name", pattern)

    def title(self):
        return self.screen.xdotool("getwindowname", self.window)


def end(process):
    if process.poll() is None:
        process.kill()
        process.wait()


def package(pattern):
    """The one package of this name."""
    found = glob.glob(os.path.join(PACKAGES, pattern))
    if len(found) != 1:
        raise AssertionError(f"{pattern} in {PACKAGES}: {found or 'none'}")
    return found[0]


def text_of(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


def main(tools):
    missing = missing_tools(tools)
    if missing:
        print("skipped; not found:", ", ".join(missing))
        sys.exit(SKIPPED)
    unittest.main(verbosity=2)
