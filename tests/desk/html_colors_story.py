"""The colours of pages as they open: each is seen on the book's background from its first moment."""
from harness.data_file import data_file_bytes, record_line
from harness.html_story import HtmlStory, write_page
from harness.story import main
from harness.wait import wait_for
from harness.watched_screen import WatchedScreen

BEIGE, WHITE, DARK = "f5e6c8", "ffffff", "202020"
PLACE = (900, 800)  # on the screen; inside the view, below the line of each page


class HtmlColors(HtmlStory):
    @classmethod
    def make_screen(cls, folder):
        return WatchedScreen(folder, cls.window_manager)

    def setUp(self):
        style = f"<style>body {{background: #{BEIGE}}}</style>"
        self.pages = {title: write_page(self.path(title + ".htm"), "<p>One line.</p>", title, style)
                      for title in ("Lanterns", "Quay")}
        self.program = self.reader()

    def wait_for_page(self, title, colour, watch):
        self.program.wait_for_book(title)
        wait_for(lambda: watch.colours[-1:] == [colour], "the colour of the page")
        self.program.wait_until_idle()
        self.assertEqual(watch.colours[-1], colour)
        self.assertNotIn(BEIGE, watch.colours)

    def test_own_background_is_not_seen(self):
        """At the first start, at the next, and from one page to the other."""
        for colour, number in ((WHITE, 0xFFFFFF), (DARK, 0x202020)):
            with self.subTest(colour=colour):
                with open(self.program.data_path, "wb") as file:
                    file.write(data_file_bytes(*(
                        record_line(path, Filter=2, BackColor=number, Title=title)
                        for title, path in self.pages.items())))
                with self.screen.watch(*PLACE) as watch:
                    self.program.start()
                    self.wait_for_page("Lanterns", colour, watch)
                with self.screen.watch(*PLACE) as watch:
                    self.program.choose_book(1, 2)
                    self.wait_for_page("Quay", colour, watch)
                self.program.close()

    def test_a_new_page(self):
        with self.screen.watch(*PLACE) as watch:
            self.program.start(self.pages["Lanterns"])
            self.wait_for_page("Lanterns", WHITE, watch)
        self.program.close()


if __name__ == "__main__":
    main()
