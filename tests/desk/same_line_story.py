"""A book opens again with the same line at the top."""
import os
import re
import shutil
import subprocess

from harness import books
from harness.story import Story, main
from harness.text_view import settled_strip, wait_for_strip

PAGES = 60


class SameLine(Story):
    def read_and_come_back(self, path, pages=PAGES):
        """Reads on, closes, starts again; returns the record, which closing again keeps."""
        reader = self.reader().start(path)
        reader.wait_for_book(path)
        first_page = settled_strip(reader)
        reader.press("Next", pages)
        strip = settled_strip(reader)
        self.assertFalse(strip.looks_like(first_page))
        reader.close()
        record = self.book_record(reader, path)
        self.assertEqual(record["Size"], os.path.getsize(path))
        self.assertGreater(record["LastPos"], 0)

        reader.start()
        reader.wait_for_book(path)
        wait_for_strip(reader, strip)
        self.assertTrue(any(f"({round(record['Size'] / 1024)}K)" in text
                            for text in self.menu_texts(reader)))
        reader.close()
        self.assertEqual(self.book_record(reader, path)["LastPos"], record["LastPos"])
        return record

    def menu_texts(self, reader):
        """The lines of the File menu as they can be read off the screen."""
        if not shutil.which("tesseract"):
            self.skipTest("the captions of the File menu: tesseract is not installed")
        menu, image = reader.open_menu("f"), self.path("menu.png")
        self.screen.output("import", "-silent", "-window", str(menu), "-resize", "300%", image)
        reader.close_menu()
        done = subprocess.run(["tesseract", image, "-", "--psm", "6"], capture_output=True,
                              check=True, env=self.screen.environment | {"OMP_THREAD_LIMIT": "1"})
        return re.split("\n", done.stdout.decode())

    def test_own_book(self):
        texts = books.lines("latin", 20000)
        path = books.write_book(self.path("lanterns.txt"), texts)
        record = self.read_and_come_back(path)
        line = books.line_at("\n".join(texts), record["LastPos"])
        self.assertIn(line, texts[PAGES * 20:PAGES * 100])

    def test_long_paragraphs(self):
        texts = books.long_paragraphs("accents", 3000)
        path = books.write_book(self.path("laternen.txt"), texts)
        self.read_and_come_back(path)

    def test_real_book(self):
        path = self.real_book("txt/War and Peace.txt")
        record = self.read_and_come_back(path)
        with open(path, encoding="utf-8", newline="") as file:
            text = file.read()
        self.assertIsNotNone(books.line_at(text.removeprefix("\ufeff"), record["LastPos"]))


if __name__ == "__main__":
    main()
