"""Nobody waits for a very long page: while it loads it can be read, and left."""
import os

from harness import books
from harness.html_story import HtmlStory, needs_engine, paragraphs, write_page
from harness.story import main
from harness.text_view import top_strip
from harness.wait import wait_for

PARAGRAPHS = 50000  # 20 MB: the engine lays them out bit by bit for some seconds


@needs_engine
class HtmlLoading(HtmlStory):
    def setUp(self):
        self.book = write_page(self.path("long.htm"),
                               paragraphs(books.long_paragraphs("latin", PARAGRAPHS)), "Lanterns")
        self.other = books.write_book(self.path("quay.txt"), books.lines("latin", 100))
        self.program = self.reader()

    def start_loading(self):
        """Its first lines are there, and no more."""
        self.program.start(self.book)
        return wait_for(self.first_lines, "the page's first lines")

    def first_lines(self):
        strip = top_strip(self.program.picture())
        return strip if strip and not strip.is_plain() else None

    def is_loading(self):
        return self.program.title().endswith(os.path.basename(self.book))

    def test_keys_turn_its_pages(self):
        top = self.start_loading()
        self.program.key("Next")
        wait_for(lambda: not self.first_lines().looks_like(top), "the next page")
        self.assertTrue(self.is_loading())
        moved = self.lines_on_top(self.program)
        self.program.wait_for_book("Lanterns")
        self.wait_for_place(self.program, moved)
        self.program.close()
        place = self.book_record(self.program, self.book)["LastPos"]
        self.assertGreater(place, 300)
        self.program.start()
        self.program.wait_for_book("Lanterns")
        self.wait_for_place(self.program, moved)
        self.program.close()
        self.assertEqual(self.book_record(self.program, self.book)["LastPos"], place)

    def test_menus_and_another_book(self):
        self.program.start(self.other)
        self.program.wait_for_book(self.other)
        self.program.close()
        self.start_loading()
        self.program.open_menu("e")
        self.program.close_menu()
        self.assertTrue(self.is_loading())
        self.program.choose_book(1, 2)
        self.program.wait_for_book(self.other)
        self.program.close()
        self.assertEqual(self.program.data().paths(), [self.other, self.book])

    def test_the_end_of_the_program(self):
        self.start_loading()
        self.assertTrue(self.is_loading())
        self.program.close()


if __name__ == "__main__":
    main()
