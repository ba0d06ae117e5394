"""Books of other kinds, scripts and encodings open again at the same line: with lines that wrap and
lines that do not, and in a window that has got another size meanwhile."""
import codecs

from harness import books
from harness.coming_back import ComingBack
from harness.story import main
from harness.text_view import settled_strip, wait_for_strip

CUT_LINE = 60  # pixels: the highest line that a page of rich text begins with, a picture in it
CYRILLIC, HEBREW, ARABIC = 204, 177, 178  # font character sets


class OtherBooks(ComingBack):
    def read_in_all_ways(self, path, pages=10, slack=0, **fields):
        for wrap in (1, 0):
            with self.subTest(wrap=wrap):
                reader = self.reader(f"program{wrap}")
                self.prepare(reader, path, column=False, Wrap=wrap, **fields)
                strip = self.read_on(reader, path, pages, slack)
                self.come_back(reader, path, strip)
                self.set_size(reader, 680, 500)
                self.come_back(reader, path, strip)
                record = self.book_record(reader, path)
                self.assertEqual(record["Wrap"], str(wrap))
                for name, value in fields.items():
                    self.assertEqual(record[name], str(value))

    def own_book(self, script, encoding, mark=b"", **look):
        path = books.write_book(self.path(f"{script}-{encoding}.txt"), books.lines(script, 2000),
                                encoding, mark=mark)
        self.read_in_all_ways(path, **look)

    def test_rich_text(self):
        path = books.write_rtf_book(self.path("lanterns.rtf"), books.lines("latin", 2000))
        self.read_in_all_ways(path, slack=CUT_LINE, Filter=1)

    def test_utf_16_little_endian(self):
        self.own_book("japanese", "utf-16-le", codecs.BOM_UTF16_LE)

    def test_utf_16_big_endian(self):
        self.own_book("accents", "utf-16-be", codecs.BOM_UTF16_BE)

    def test_latin(self):
        self.own_book("accents", "cp1252")

    def test_cyrillic(self):
        self.own_book("cyrillic", "cp1251", Charset=CYRILLIC)

    def test_hebrew(self):
        self.own_book("hebrew", "cp1255", Charset=HEBREW)

    def test_arabic(self):
        self.own_book("arabic", "cp1256", Charset=ARABIC)

    def test_charset_of_the_record_shows_the_right_letters(self):
        for script, page, charset in (("cyrillic", "cp1251", CYRILLIC),
                                      ("hebrew", "cp1255", HEBREW), ("arabic", "cp1256", ARABIC)):
            with self.subTest(script=script):
                reader = self.reader(script)
                texts = books.lines(script, 100)
                plain = books.write_book(self.path(script + ".txt"), texts)
                self.prepare(reader, plain, Charset=charset)
                reader.start()
                strip = settled_strip(reader)
                reader.close()
                coded = books.write_book(self.path(script + "-coded.txt"), texts, page)
                self.prepare(reader, coded, Charset=charset)
                reader.start()
                reader.wait_for_book(coded)
                wait_for_strip(reader, strip)
                reader.close()

    def test_real_rich_text_with_pictures_and_tables(self):
        name = "rtf/Essays, a chapter with pictures and tables (word processor).rtf"
        reader, path = self.reader(), self.real_book(name)
        strip = self.read_on(reader, path, 10, CUT_LINE)
        self.come_back(reader, path, strip)

    def test_real_latin_book(self):
        self.read_in_all_ways(self.real_book("txt/Don Quijote (latin1).txt"), pages=60)

    def test_real_japanese_book(self):
        reader, path = self.reader(), self.real_book("charsets/ja-utf-16le.txt")
        self.prepare(reader, path, width=420, height=260)
        strip = self.read_on(reader, path, 1)
        self.come_back(reader, path, strip)


if __name__ == "__main__":
    main()
