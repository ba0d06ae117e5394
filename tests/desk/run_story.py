"""scripts/run without a display: its picture shows the book and nothing else."""
import contextlib
import os
import shutil
import subprocess
import tempfile
import unittest

from harness.picture import Picture
from harness.story import main
from harness.wine import ON_WINE

TOP = os.path.realpath(os.path.join(os.path.dirname(__file__), "../.."))
BUILD = os.path.join(TOP, "build", "windows" if ON_WINE else "linux")
DATA = os.path.join(BUILD, "Norvaset.dat")
LONGEST = 200  # seconds
BACKGROUND = b"\0\0\0"
CORNER = 8  # rows that a frame may round off

# As on a slow machine: it comes after the reader, if the script lets the reader come first.
LATE_WINDOW_MANAGER = """#!/bin/sh
for _ in 1 2 3 4 5 6 7 8 9 10; do
    xdotool search --onlyvisible --name '^Norvaset' >/dev/null 2>&1 && break
    sleep 0.2
done
exec {program} "$@"
"""
# What takes the picture writes down which windows there are.
WITNESS = """#!/bin/sh
xprop -root _NET_CLIENT_LIST >"{folder}/windows"
exec {program} "$@"
"""


@contextlib.contextmanager
def first_run():
    """Without what a person who works here has read with this build."""
    if not os.path.exists(DATA):
        yield
        return
    kept = DATA + ".kept"
    os.replace(DATA, kept)
    try:
        yield
    finally:
        os.replace(kept, DATA)


def put_before(program, script, folder):
    path = os.path.join(folder, program)
    with open(path, "w", encoding="ascii") as file:
        file.write(script.format(program=shutil.which(program), folder=folder))
    os.chmod(path, 0o755)


def picture_and_windows(folder, *book):
    put_before("openbox", LATE_WINDOW_MANAGER, folder)
    put_before("import", WITNESS, folder)
    environment = {name: value for name, value in os.environ.items()
                   if name not in ("DISPLAY", "WAYLAND_DISPLAY", "XAUTHORITY")}
    environment["PATH"] = folder + os.pathsep + environment["PATH"]
    subprocess.run([os.path.join(TOP, "scripts/run"), *(["--windows"] if ON_WINE else []), *book],
                   env=environment, check=True, stdin=subprocess.DEVNULL, timeout=LONGEST)
    with open(os.path.join(folder, "windows"), encoding="ascii") as file:
        return read_picture(os.path.join(BUILD, "screenshot.png")), file.read().count("0x")


def read_picture(path):
    done = subprocess.run(["convert", path, "-depth", "8", "ppm:-"], check=True, capture_output=True)
    header = done.stdout.split(b"\n", 3)
    return Picture(*map(int, header[1].split()), header[3])


def covered_columns(row):
    """The first byte with anything in it and the one after the last; None for an empty row."""
    if not row.strip(BACKGROUND):
        return None
    return len(row) - len(row.lstrip(BACKGROUND)), len(row.rstrip(BACKGROUND))


def middle_of(picture):
    return picture.crop(picture.width // 3, 100, picture.width * 2 // 3, picture.height // 2)


class Run(unittest.TestCase):
    def test_the_picture_is_the_book_alone(self):
        with tempfile.TemporaryDirectory() as folder, first_run():
            picture, windows = picture_and_windows(folder)
        self.assertEqual(windows, 1)
        rows = [covered_columns(picture.row(y)) for y in range(picture.height)]
        covered = [columns for columns in rows if columns]
        self.assertGreater(len(covered), picture.height // 2)
        self.assertEqual(len(set(covered[CORNER:-CORNER])), 1, "there is something beside it")
        self.assertFalse(middle_of(picture).is_plain(), "the book has no text")

    def test_the_picture_waits_for_a_long_page(self):
        with tempfile.TemporaryDirectory() as folder, first_run():
            page = os.path.join(folder, "long.htm")
            with open(page, "w", encoding="ascii") as file:
                file.write("<p>Some words of a page that takes a while to be read.\n" * 100_000)
            for start in ("new", "read before"):
                picture, _ = picture_and_windows(folder, page)
                with self.subTest(start):
                    self.assertFalse(middle_of(picture).is_plain(), "the page has no text")


if __name__ == "__main__":
    main()
