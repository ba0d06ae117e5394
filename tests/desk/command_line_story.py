"""What the program prints: without a display, and agreeing with its man page."""
import os
import re
import subprocess
import unittest

from harness.story import Story, main
from harness.wine import PROGRAM

HERE = os.path.dirname(os.path.abspath(__file__))
MAN_PAGE = os.path.join(HERE, "../../packaging/linux/Norvaset.1.in")
TIME = 30  # seconds


class CommandLine(unittest.TestCase):
    def printed(self, *arguments):
        done = subprocess.run([PROGRAM, *arguments], env={"PATH": os.environ["PATH"]},
                              stdin=subprocess.DEVNULL, capture_output=True, check=False, timeout=TIME)
        self.assertEqual((done.returncode, done.stderr), (0, b""))
        return done.stdout.decode()

    def test_help_and_version(self):
        self.assertRegex(self.printed("--version"), r"\ANorvaset \d+\.\d+\.\d+\n\Z")
        told = self.printed("--help")
        self.assertEqual(self.printed("-h"), told)
        self.assertTrue(told.startswith("Usage: Norvaset [BOOK]\n"))
        self.assertLessEqual(max(map(len, told.splitlines())), 80)
        with open(MAN_PAGE, encoding="utf-8") as file:
            page = file.read().replace("\\-", "-")
        options = set(re.findall(r"(?<!\S)--?\w+", told))
        self.assertEqual(options, {"-h", "--help", "--version"})
        self.assertEqual(options, set(re.findall(r"(?<![\w/-])--?\w+", page.split(".SH OPTIONS")[1]
                                                 .split(".SH FILES")[0])))

    def test_what_cannot_be_printed(self):
        with open("/dev/full", "wb") as full:
            done = subprocess.run([PROGRAM, "--version"], stdout=full, check=False, timeout=TIME)
        self.assertEqual(done.returncode, 1)


class Book(Story):
    def test_a_book_with_the_name_of_an_option(self):
        program = self.reader()
        book = os.path.join(program.home, "--help")
        with open(book, "w", encoding="ascii") as file:
            file.write("How to help.\n")
        program.start("./--help")
        program.wait_for_book(book)
        program.close()


if __name__ == "__main__":
    main()
