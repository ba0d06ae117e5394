"""HTML files as they are found on disks: old charsets, missing parts, frames, no HTML at all, and
very much of it."""
import collections
import os
import random
import resource
import struct
import zlib

from harness import books
from harness.engine import pages, wait_for_ends
from harness.html_story import HtmlStory, needs_engine, paragraphs, write_page
from harness.story import main
from harness.wait import wait_for

CYRILLIC, JAPANESE = "204", "128"  # font character sets
PARAGRAPHS_OF_50_MB = 130000
LIMIT = 500 << 20  # bytes; a page of a few lines takes a fifth
GROWING = ('<circle r="9"><animate attributeName="r" values="0;900" dur="0.0%ds" '
           'repeatCount="indefinite"/></circle>')
HUNGRY = "<svg>" + "".join(GROWING % (number % 9 + 1) for number in range(30000)) + "</svg>"

CYRILLIC_LINE = "Мельник считал фонари."
UKRAINIAN = "Жили собі дід та баба, і була в них курочка."
JAPANESE_LINE = "粉屋の娘は明かりを数えていた。"
GREEK = "Ο μυλωνάς μετρούσε τα φανάρια στην προκυμαία."
POLISH = "Młynarz liczył światła wzdłuż nabrzeża, aż zasnął."
HEBREW = "בת הטוחן ספרה את הפנסים לאורך הרציף."
# As a writer of the charset would, which Python does not know.
VIETNAMESE = "Ngày xửa ngày xưa có một ông vua già, ông có ba người con trai."
VIETNAMESE_IN_VISCII = (b"Ng\xe0y x\xd8a ng\xe0y x\xdfa c\xf3 m\xb5t \xf4ng vua gi\xe0, \xf4ng c\xf3 ba "
                        b"ng\xdf\xb6i con trai.")


RED, GREEN, BLUE, BROWN = b"\xff\0\0", b"\0\xff\0", b"\0\0\xff", b"\xa5\x2a\x2a"
DRAWN_SHEET = """<style>
.drop::first-letter { float: left; color: brown; font: bold 120px monospace }
b { background: #00ff00; padding: 4px 10px }
b::after { content: url(red.png) }
.dashed { width: 100px; height: 20px; border-top: 4px dashed #0000ff; clear: left }</style>"""
DRAWN = '<p class="drop">Izzard</p><p>a <b>word</b></p><div class="dashed"></div>'


def png(width, height, color):
    """A PNG file of one colour."""
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
    header = struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)
    rows = (b"\0" + color * width) * height
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(rows)) +
            chunk(b"IEND", b""))


class HtmlFiles(HtmlStory):
    def write(self, name, text, encoding):
        with open(self.path(name), "wb") as file:
            file.write(text if isinstance(text, bytes) else text.encode(encoding))
        return self.path(name)

    def test_charsets(self):
        for script, encoding, name, charset in (("cyrillic", "cp1251", "windows-1251", CYRILLIC),
                                                ("japanese", "shift_jis", "Shift_JIS", JAPANESE),
                                                ("accents", "utf-16", "utf-16", "0"),
                                                ("cyrillic", "cp1251", "", CYRILLIC),
                                                ("cyrillic", "cp866", "", "0"),
                                                ("japanese", "euc_jp", "", "0")):
            with self.subTest(encoding=encoding, declared=name):
                lines = [" ".join(line.split()) for line in books.lines(script, 50)]
                title = books.SENTENCES[script][:8].strip()
                declared = f'<meta charset="{name}">' if name else ""
                page = (f'{declared}<title>{title}</title>'
                        f"<body>{paragraphs(lines)}")
                path = self.write(f"{encoding}{name}.htm", page, encoding)
                reader = self.open(path, title, self.reader(encoding + name))
                self.assertEqual(self.whole_text(reader), "\n".join(lines))
                reader.close()
                self.assertEqual(self.book_record(reader, path)["Charset"], charset)

    def test_short_pages_that_declare_no_charset(self):
        """With a picture and a style sheet beside them, and a link within the page."""
        with open(self.path("side.css"), "w", encoding="ascii") as file:
            file.write("p {margin: 0; background: #00ff00}")
        for name, text, data in (("cp1251", CYRILLIC_LINE, CYRILLIC_LINE.encode("cp1251")),
                                 ("cp866", CYRILLIC_LINE, CYRILLIC_LINE.encode("cp866")),
                                 ("koi8-u", UKRAINIAN, UKRAINIAN.encode("koi8_u")),
                                 ("euc-jp", JAPANESE_LINE, JAPANESE_LINE.encode("euc_jp")),
                                 ("cp737", GREEK, GREEK.encode("cp737")),
                                 ("cp852", POLISH, POLISH.encode("cp852")),
                                 ("cp862", HEBREW, HEBREW.encode("cp862")),
                                 ("viscii", VIETNAMESE, VIETNAMESE_IN_VISCII),
                                 ("utf-8", POLISH, POLISH.encode("utf-8"))):
            with self.subTest(name=name):
                page = (b'<title>Quay</title><link rel="stylesheet" href="side.css"><body><p>' + data +
                        b'<p><a href="#end">on</a>' + b"<p>and" * 200 +
                        b'<p id="end" style="background: #0000ff; height: 900px">')
                path = self.write(f"{name} 100%.htm", page, None)
                reader = self.open(path, "Quay", self.reader(name))
                self.wait_for_color(reader, "00ff00")
                reader.key("Tab", "Return")
                self.wait_for_color(reader, "0000ff")
                self.assertEqual(self.whole_text(reader).split("\n")[0], text)
                reader.close()
                self.assertGreater(self.book_record(reader, path)["LastPos"], 0)

    def wait_for_color(self, reader, color):
        _, _, width, height = reader.rectangle()
        wait_for(lambda: reader.picture().pixel(width - 60, height // 2).hex() == color, "the color", 10)

    def test_what_a_page_declares_holds(self):
        lines = books.lines("cyrillic", 50)
        page = f'<meta charset="iso-8859-1"><title>quay</title><body>{paragraphs(lines)}'
        reader = self.open(self.write("latin.htm", page, "cp1251"), "quay")
        self.assertEqual(self.whole_text(reader),
                         "\n".join(line.encode("cp1251").decode("cp1252") for line in lines))
        reader.close()

    def test_what_a_style_sheet_draws_around_texts(self):
        """A picture after a word, boxes in a line, a dashed border, a drop cap; none is text."""
        with open(self.path("red.png"), "wb") as file:
            file.write(png(20, 20, RED))
        path = write_page(self.path("drawn.htm"), DRAWN, title="Drawn", head=DRAWN_SHEET)
        reader = self.open(path, "Drawn")

        def colours():
            pixels = reader.picture().pixels
            counts = collections.Counter(pixels[at:at + 3] for at in range(0, len(pixels), 3))
            return [counts[color] for color in (RED, GREEN, BLUE, BROWN)]

        def is_drawn():
            red, green, blue, brown = colours()
            # The word's box without its letters; of the border half; the letter's stem is thick.
            return (red == 20 * 20 and green > 400 and 40 * 4 < blue < 80 * 4 and brown > 600)
        wait_for(is_drawn, "what the sheet draws: " + str(colours()))
        self.assertEqual(self.whole_text(reader), "Izzard\na word")
        reader.close()

    def test_missing_parts(self):
        for name, source, text in (("bare", "the miller's daughter", "the miller's daughter"),
                                   ("untitled", "<body><p>one<p>two", "one\ntwo"),
                                   ("bodiless", "<title></title><p>one", "one")):
            with self.subTest(name=name):
                path = self.write(name + ".htm", source, "ascii")
                reader = self.open(path, path, self.reader(name))
                self.assertEqual(self.whole_text(reader), text)
                reader.close()

    def test_no_text_at_all(self):
        noise = random.Random(7).randbytes(300000)
        for name, content in (("empty", b""), ("titled", b"<title>Quay</title>"), ("noise", noise)):
            with self.subTest(name=name):
                path = self.write(name + ".htm", content, None)
                reader = self.reader(name)
                reader.start(path)
                reader.wait_for_book("Quay" if name == "titled" else path)
                reader.key("ctrl+a", "ctrl+plus", "Next", "ctrl+d")
                reader.finish_keys()
                reader.close()
                self.book_record(reader, path)

    @needs_engine
    def test_frames(self):
        write_page(self.path("left.htm"), '<a href="right.htm">to the right</a>', "Left",
                   "<style>body{background:#0f0}</style>")
        write_page(self.path("right.htm"), "<p>right</p>", "Right",
                   "<style>body{background:#00f}</style>")
        path = self.write("frames.htm", "<title>Both</title><frameset cols='50%,*'>"
                          "<frame src='left.htm'><frame src='right.htm'></frameset>", "ascii")
        reader = self.open(path, "Both")
        _, _, width, height = reader.rectangle()
        wait_for(lambda: [reader.picture().pixel(x, height // 2).hex()
                          for x in (width // 4, width * 3 // 4)] == ["00ff00", "0000ff"],
                 "both frames")
        reader.key("Tab", "Return")
        reader.wait_for_book("Right")
        reader.close()
        self.book_record(reader, self.path("right.htm"))

    def test_a_link_to_another_book(self):
        text = books.write_book(self.path("next.txt"), books.lines("latin", 50))
        path = write_page(self.path("first.htm"), '<a href="next.txt">on</a>', "First")
        reader = self.open(path, "First")
        reader.key("Tab", "Return")
        reader.wait_for_book(text)
        reader.choose_book(1, 2)
        reader.wait_for_book("First")
        reader.close()

    @needs_engine
    def test_the_engine_dies(self):
        path = write_page(self.path("book.htm"), paragraphs(books.lines("latin", 500)))
        reader = self.open(path, "Lanterns")
        for pid in pages(reader):
            os.kill(pid, 9)
        reader.answer_message()
        self.assertTrue(reader.is_alive())
        reader.key("F5")
        self.assertTrue(self.whole_text(reader).startswith("00001"))
        reader.close()

    @needs_engine
    def test_a_program_without_its_engine(self):
        path = write_page(self.path("book.htm"), "<p>one</p>")
        reader = self.reader()
        os.remove(os.path.join(reader.folder, "libnorvaset-html.so"))
        self.open(path, "Lanterns", reader)
        self.assertEqual(self.whole_text(reader), "one")
        reader.close()

    @needs_engine
    def test_a_page_that_eats_memory(self):
        path = write_page(self.path("hungry.htm"), HUNGRY, "Hungry")
        text = books.write_book(self.path("next.txt"), books.lines("latin", 50))
        limits = resource.getrlimit(resource.RLIMIT_RSS)
        self.addCleanup(resource.setrlimit, resource.RLIMIT_RSS, limits)
        resource.setrlimit(resource.RLIMIT_RSS, (LIMIT, limits[1]))  # of the reader, too
        reader = self.reader().start(path)
        eaten = wait_for(lambda: pages(reader), "the page's process")
        reader.answer_message()
        wait_for_ends(eaten)
        reader.close()
        reader.start(text)
        reader.wait_for_book(text)
        reader.close()

    def test_50_megabytes(self):
        path = write_page(self.path("long.htm"),
                          paragraphs(books.long_paragraphs("latin", PARAGRAPHS_OF_50_MB)), "Long")
        self.assertGreater(os.path.getsize(path), 50_000_000)
        reader = self.reader()
        reader.start(path)
        wait_for(lambda: "Long" in reader.title(), "the title", 200)
        first = reader.picture()

        def turned():
            reader.key("Next")
            return not reader.picture().looks_like(first)
        wait_for(turned, "the next page", 100)
        reader.close()
        self.assertGreater(self.book_record(reader, path)["LastPos"], 0)


if __name__ == "__main__":
    main()
