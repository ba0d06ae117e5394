"""A data file carried from one system to the other and back: the books open at the same character.
And a folder with both programs, in which each finds its own books again."""
import os
import re
import shutil
import signal
import subprocess

from harness import books
from harness.clipboard import fill
from harness.dialog import Dialog
from harness.story import Story, main
from harness.text_view import settled_strip
from harness.wait import wait_for
from harness.wine import ON_WINE

LINUX_PROGRAM = os.environ.get("LINUX_PROGRAM", "")
LONGEST_LINE = 200  # characters of a line on either system


class Carried(Story):
    def setUp(self):
        if not ON_WINE or not os.access(LINUX_PROGRAM, os.X_OK):
            self.skipTest("the programs of both systems are not built")
        self.windows = self.reader()
        self.linux = os.path.join(self.windows.folder, "Norvaset")
        shutil.copy(LINUX_PROGRAM, self.linux)

    def place(self, path):
        """Of the only record, which must be this book's."""
        (record,) = self.windows.data().records()
        self.assertIn(os.path.basename(path), record["Path"])
        return record["LastPos"]

    def carry(self, path, to_linux):
        """The same book lies somewhere else on the other system."""
        names = [path, "Z:" + path.replace("/", "\\")]
        old, new = reversed(names) if to_linux else names
        data = self.windows.data_bytes()
        self.assertIn(old.encode(), data)
        with open(self.windows.data_path, "wb") as file:
            file.write(data.replace(old.encode(), new.encode()))

    def on_linux(self, path, pages):
        environment = self.screen.environment | {
            "HOME": self.windows.home, "XDG_RUNTIME_DIR": self.windows.runtime}
        process = subprocess.Popen([self.linux], env=environment, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        try:
            def window():
                return self.screen.xdotool("search", "--onlyvisible", "--all", "--pid",
                                           process.pid, "--name",
                                           re.sub(r"\W", ".", os.path.basename(path))).strip()
            found = wait_for(window, "the window on Linux").split()[0]
            wait_for(lambda: self.screen.xdotool("getactivewindow").strip() == found,
                     "the window to be active")
            if pages:
                self.screen.xdotool("key", "--delay", 50, *["Next"] * pages)
        finally:
            process.send_signal(signal.SIGTERM)
            process.wait(30)

    def to_and_fro(self, path, slack):
        self.windows.start(path)
        self.windows.wait_for_book(path)
        self.windows.press("Next", 1)
        self.windows.close()
        place = self.place(path)
        self.assertGreater(place, 0)

        self.carry(path, to_linux=True)
        self.on_linux(path, pages=0)
        self.assert_same(self.place(path), place, slack)
        self.on_linux(path, pages=4)
        further = self.place(path)
        self.assertGreater(further, place)

        self.carry(path, to_linux=False)
        self.windows.start()
        self.windows.wait_for_book(path)
        self.windows.close()
        self.assert_same(self.place(path), further, slack)

    def assert_same(self, now, place, slack):
        """The line on top holds the place; where lines break elsewhere it begins before it."""
        self.assertLessEqual(now, place)
        self.assertGreaterEqual(now, place - slack)

    def test_plain_text(self):
        path = books.write_book(self.path("lanterns.txt"), books.lines("latin", 2000))
        self.to_and_fro(path, 0)

    def test_rich_text(self):
        path = books.write_rtf_book(self.path("lanterns.rtf"), books.lines("latin", 1000))
        self.to_and_fro(path, 0)

    def test_real_rich_text(self):
        name = "rtf/Essays, a chapter with pictures and tables (word processor).rtf"
        self.to_and_fro(self.real_book(name), LONGEST_LINE)


class Stick(Story):
    """A folder with the programs and a book, which lies somewhere else on each system."""
    def setUp(self):
        if not ON_WINE or not os.access(LINUX_PROGRAM, os.X_OK):
            self.skipTest("the programs of both systems are not built")
        self.place = self.path("drive")
        os.mkdir(self.place)
        self.windows = self.reader("windows", program_folder=self.place)
        self.plug_in("media")
        self.linux = self.reader("linux", program_folder=self.place, program=LINUX_PROGRAM)
        books.write_book(self.book(), books.lines("latin", 1000))

    def plug_in(self, name):
        os.rename(self.place, self.path(name))
        self.place = self.path(name)

    def book(self):
        return os.path.join(self.place, "lanterns.txt")

    def start(self, reader):
        self.plug_in("drive" if reader == self.windows else "media")
        reader.start()

    def read_for_the_first_time(self, reader):
        """By the dialog; returns the place at the end."""
        self.start(reader)
        wait_for(lambda: reader.title() == "Norvaset [Default]", "no book")
        dialog = Dialog(reader, "Open File", "ctrl+o")
        path = reader.shown_path(self.book())
        if reader.on_wine:
            dialog.type(path)
        else:  # Qt's list of completions may swallow letters that come faster than anybody types
            fill(self.screen, path)
            dialog.key("ctrl+v")
        dialog.close()
        reader.wait_for_book(self.book())
        return self.read_on(reader)

    def come_back(self, reader, place):
        """At the line that was on top on the other system, which may begin elsewhere here."""
        self.start(reader)
        reader.wait_for_book(self.book())
        reader.close()
        here = self.last_pos(reader)
        self.assertLessEqual(here, place)
        self.assertGreaterEqual(here, place - LONGEST_LINE)
        self.start(reader)
        reader.wait_for_book(self.book())
        return self.read_on(reader)

    def last_pos(self, reader):
        (record,) = reader.data().records()
        return record["LastPos"]

    def read_on(self, reader):
        before = settled_strip(reader)
        reader.key("Next", "Next", "Next", "ctrl+plus")
        wait_for(lambda: not settled_strip(reader).looks_like(before), "the next pages")
        reader.finish_keys()
        reader.close()
        return self.last_pos(reader)

    def to_and_fro(self, first, second):
        """One record goes to and fro: each program finds it at the same place beside the data file."""
        place = self.read_for_the_first_time(first)
        for reader in (second, first, second):
            place = self.come_back(reader, place)
        data = second.data()
        (record,) = data.records()
        self.assertEqual(record["Path"], second.shown_path(
            os.path.join(os.path.dirname(second.data_path), "lanterns.txt")))
        self.assertEqual(record["FontSize"], "16")
        self.assertEqual(data.value("mProfileList", "0"), "Default")

    def test_from_windows(self):
        self.to_and_fro(self.windows, self.linux)

    def test_from_linux(self):
        self.to_and_fro(self.linux, self.windows)


if __name__ == "__main__":
    main()
