"""A book opens again with the same line at the top."""
import os
import shutil
import subprocess

from harness import books
from harness.coming_back import ComingBack
from harness.story import main
from harness.text_view import settled_strip, wait_for_strip

PAGES = 60


class SameLine(ComingBack):
    def read_and_come_back(self, path):
        reader = self.reader()
        strip = self.read_on(reader, path, PAGES)
        self.come_back(reader, path, strip)
        record = self.book_record(reader, path)
        self.assertEqual(record["Size"], os.path.getsize(path))
        return record

    def test_own_book(self):
        texts = books.lines("latin", 20000)
        path = books.write_book(self.path("lanterns.txt"), texts)
        record = self.read_and_come_back(path)
        line = books.line_at("\n".join(texts), record["LastPos"])
        self.assertIn(line, texts[PAGES * 20:PAGES * 100])

    def test_long_paragraphs(self):
        texts = books.long_paragraphs("accents", 3000)
        self.read_and_come_back(books.write_book(self.path("lanternes.txt"), texts))

    def test_real_book(self):
        path = self.real_book("txt/War and Peace.txt")
        record = self.read_and_come_back(path)
        with open(path, encoding="utf-8-sig", newline="") as file:
            self.assertIsNotNone(books.line_at(file.read(), record["LastPos"]))

    def test_narrower_and_wider_again_while_open(self):
        path = books.write_book(self.path("lanterns.txt"), books.long_paragraphs("latin", 3000))
        reader = self.reader().start(path)
        reader.wait_for_book(path)
        reader.press("Next", 7)
        strip, (width, height) = settled_strip(reader), reader.rectangle()[2:]
        reader.resize(width // 2, height // 2)
        self.assertFalse(settled_strip(reader).looks_like(strip))
        reader.resize(width, height)
        wait_for_strip(reader, strip)
        reader.close()

    def test_place_within_a_paragraph_in_a_narrower_window(self):
        texts = books.long_paragraphs("latin", 3000)
        path = books.write_book(self.path("lanterns.txt"), texts)
        reader = self.reader()
        self.prepare(reader, path)
        self.read_on(reader, path, 7)
        place = self.book_record(reader, path)["LastPos"]
        self.set_size(reader, 500, 400)
        reader.start()
        reader.wait_for_book(path)
        reader.close()
        # The line is another one now, but the place is in it.
        now = self.book_record(reader, path)["LastPos"]
        self.assertLessEqual(now, place)
        self.assertGreater(now, place - 80)

    def test_the_file_menu_names_the_book(self):
        path = books.write_book(self.path("lanterns.txt"), ["x" * 102398] * 3)
        self.assertIn("(300K)", self.file_menu_text(self.reader().start(path)))

    def test_the_file_menu_names_a_real_book(self):
        path = self.real_book("txt/War and Peace.txt")
        self.assertIn("(3281K)", self.file_menu_text(self.reader().start(path)))

    def file_menu_text(self, reader):
        """The captions of the File menu as they can be read off the screen."""
        if not shutil.which("tesseract"):
            self.skipTest("tesseract, to read off the screen, is not installed")
        menu, image = reader.open_menu("f"), self.path("menu.png")
        self.screen.output("import", "-silent", "-window", str(menu), "-resize", "300%", image)
        done = subprocess.run(["tesseract", image, "-", "--psm", "6"], capture_output=True,
                              check=True, env=self.screen.environment | {"OMP_THREAD_LIMIT": "1"})
        reader.close_menu()
        reader.close()
        return done.stdout.decode()


if __name__ == "__main__":
    main()
