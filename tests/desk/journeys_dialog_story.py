"""Each sort of book by File, Open with each of its types: typed, and clicked in the list."""
from harness import books, journeys
from harness.journey_story import JourneyStory
from harness.open_dialog import OpenDialog
from harness.story import main


class DialogJourneys(JourneyStory):
    def typed(self, chosen):
        self.start()
        for path, kind in self.books("typed " + chosen).items():
            with self.subTest(path=path):
                dialog = OpenDialog(self.program)
                dialog.choose_type(chosen)
                dialog.type_path(path)
                dialog.close()
                self.arrive(path, kind)
        self.come_back()

    def clicked(self, chosen):
        """The folder holds them all; the dialog lists those of the type, in this order. It begins
        there, as a book of the same folder is open: a hidden one, which it does not list."""
        all_books = self.books("clicked " + chosen)
        first = books.write_book(self.path("books/.first.txt"), books.lines("latin", 400))
        self.start(first)
        self.arrive(first, 0)
        listed = [path for path, kind in all_books.items() if kind is not None]
        for number, path in enumerate(listed):
            with self.subTest(path=path):
                dialog = OpenDialog(self.program)
                dialog.pick_type(chosen)
                dialog.click_first_file()
                dialog.key(*["Down"] * number)
                dialog.press_open()
                self.arrive(path, all_books[path])
        dialog = OpenDialog(self.program)
        dialog.choose_type(chosen)
        dialog.click_first_file()
        dialog.key("End")
        dialog.press_open()  # the one that was the last of the list: nothing else follows
        self.come_back()


def _tell(way):
    does, chosen = way.split()

    def story(self):
        getattr(self, does)(chosen)
    setattr(DialogJourneys, "test_" + way.replace(" ", "_"), story)


for _way in journeys.WAYS:
    if _way.startswith(("typed", "clicked")):
        _tell(_way)

if __name__ == "__main__":
    main()
