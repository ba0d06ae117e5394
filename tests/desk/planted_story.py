"""Libraries planted beside the program and the book, under names of the system's: none is loaded."""
import glob
import os
import shutil

from harness import books
from harness.story import Story, main
from harness.wait import wait_for

PLANTED = os.environ.get("PLANTED", "")  # a library that leaves a mark when it is loaded
WITNESS = os.environ.get("PLANTED_WITNESS", "")  # a program that imports winhttp.dll
# What the program loads by itself, and what libraries of the system are known to load for it. Not
# those that Windows always takes from its own folder; nor version.dll and uxtheme.dll, which Wine's
# own user32 needs from wherever they are. That the program does not import them is seen by
# scripts/check_windows_imports.
NAMES = ("winhttp", "urlmon", "msftedit", "riched20", "mshtml", "ieframe", "propsys", "dwmapi",
         "cryptbase", "profapi", "sspicli", "secur32", "ntmarta", "wininet")


class Planted(Story):
    def setUp(self):
        self.program, self.planted = self.reader(), []
        overrides = ";".join(f"{name}=n,b" for name in NAMES)  # Wine would take its own first
        self.program.variables["WINEDLLOVERRIDES"] = overrides + ";mscoree=;winemenubuilder.exe=d"

    def plant(self, folder):
        self.planted.append(folder)
        for name in NAMES:
            shutil.copy(PLANTED, os.path.join(folder, name + ".dll"))

    def loaded(self):
        return [mark for folder in self.planted for mark in glob.glob(folder + "/*.loaded")]

    def test_none_is_loaded(self):
        book_folder = self.path("books")
        os.mkdir(book_folder)
        for folder in (self.program.folder, book_folder, self.program.home):
            self.plant(folder)
        text = books.write_book(os.path.join(book_folder, "lanterns.txt"),
                                books.lines("latin", 500))
        rich = books.write_rtf_book(os.path.join(book_folder, "quay.rtf"),
                                    books.lines("latin", 500))
        for book in (text, rich):
            self.program.start(book)
            self.program.wait_for_book(book)
            self.program.show_about()  # rich text, and the version of the program
            self.program.close()
        self.assertEqual(self.loaded(), [])

    def test_the_mark_of_one_that_is_loaded(self):
        """By a program that imports it: else the other story would see nothing, ever."""
        folder = self.path("witness")
        os.mkdir(folder)
        witness = shutil.copy(WITNESS, folder)
        self.plant(folder)
        self.program.program = witness
        process = self.program.launch()
        self.assertEqual(wait_for(lambda: process.poll() is not None and [process.returncode],
                                  "the end of the witness"), [0])
        self.assertEqual([os.path.basename(mark).lower() for mark in self.loaded()],
                         ["winhttp.dll.loaded"])


if __name__ == "__main__":
    main()
