"""Reading with the hands free, by Ctrl+Shift+S."""
from harness import books
from harness.story import Story, main
from harness.text_view import top_strip
from harness.wait import wait_for


class AutoScroll(Story):
    def setUp(self):
        book = books.write_book(self.path("book.txt"), books.lines("latin", 300))
        self.program = self.reader().start(book)
        self.program.wait_for_book(book)
        self.program.wait_until_settled()

    def strip(self):
        return wait_for(lambda: top_strip(self.program.picture()), "the first lines")

    def moves(self):
        before = self.strip()
        wait_for(lambda: not self.strip().looks_like(before), "the text to move")

    def stands(self):
        """Two pictures in a row are the same, and so is one after the program has had its turn."""
        self.program.finish_keys()
        before = self.strip()
        self.program.finish_keys()
        self.assertTrue(self.strip().looks_like(before))

    def test_keys_start_steer_and_end_it(self):
        self.program.key("ctrl+shift+s")
        self.moves()
        self.program.key("plus", "KP_Add", "minus", "plus", "plus", "plus", "plus", "plus")
        self.moves()
        self.program.key("ctrl+shift+s")
        self.stands()
        self.program.key("ctrl+shift+s")
        self.moves()
        self.program.key("Escape")
        self.stands()
        self.program.close()

    def test_mouse_ends_it(self):
        self.program.key("ctrl+shift+s", "plus", "plus", "plus", "plus")
        self.moves()
        left, top, width, height = self.program.rectangle()
        self.program.click(left + width // 3, top + height // 2)
        self.stands()
        self.program.close()


if __name__ == "__main__":
    main()
