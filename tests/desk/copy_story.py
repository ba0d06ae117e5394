"""Copying: what another program gets while the reader runs."""
from harness import books
from harness.clipboard import copied
from harness.story import Story, main


class Copy(Story):
    def open(self, path):
        reader = self.reader().start(path)
        reader.wait_for_book(path)
        return reader

    def test_a_whole_book(self):
        texts = books.lines("latin", 10000) + books.lines("hebrew", 10000)
        reader = self.open(books.write_book(self.path("lanterns.txt"), texts))
        reader.key("ctrl+a")
        self.assertEqual(copied(reader), "".join(text + "\n" for text in texts))
        reader.close()

    def test_a_selection_in_another_keyboard_layout(self):
        reader = self.open(books.write_book(self.path("fonari.txt"), books.lines("cyrillic", 50)))
        self.screen.output("setxkbmap", "ru")
        try:
            reader.key("Down", "shift+End")
            # By the place of the key, which types another letter in this layout.
            self.assertEqual(copied(reader, "ctrl+Cyrillic_es"), books.lines("cyrillic", 50)[1])
        finally:
            self.screen.output("setxkbmap", "us")
        reader.close()

    def test_rich_text_as_source(self):
        path = self.path("rich.rtf")
        with open(path, "w", encoding="ascii") as file:
            file.write(r"{\rtf1\ansi{\fonttbl{\f0 DejaVu Serif;}}\f0\fs30 plain {\b bold}\par}")
        reader = self.open(path)
        reader.key("ctrl+a")
        self.assertEqual(copied(reader).rstrip("\n"), "plain bold")
        self.copy_as_rtf(reader, ["DejaVu Serif", r"\fs30", r"\b", "plain ", "bold"])

    def test_plain_text_as_source(self):
        path = books.write_book(self.path("fonari.txt"), books.lines("cyrillic", 3))
        reader = self.open(path)
        reader.key("shift+End")
        self.copy_as_rtf(reader, ["00001 ", r"\u1077?"])

    def copy_as_rtf(self, reader, parts):
        source = copied(reader, "o", opening=lambda: reader.open_menu("e"))
        self.assertTrue(source.startswith(r"{\rtf1") and source.rstrip().endswith("}"))
        self.assertTrue(source.isascii())
        for part in parts:
            self.assertIn(part, source)
        reader.close()


if __name__ == "__main__":
    main()
