"""Two people share the reader: each has a history and a look of their own."""
from harness import books
from harness.dialog import Dialog
from harness.story import Story, main
from harness.wait import wait_for
from harness.wine import shown_path


class Profiles(Story):
    def setUp(self):
        self.mine = books.write_book(self.path("anchor.txt"), books.lines("latin", 300))
        self.yours = books.write_book(self.path("bridge.txt"), books.lines("latin", 300))
        self.program = self.reader()
        self.program.start(self.mine)
        self.program.wait_for_book(self.mine)
        self.program.close()

    def add(self, name):
        self.program.open_menu("p")
        dialog = Dialog(self.program, "Add New...", "n")
        dialog.type(name)
        dialog.close()

    def wait_for_title(self, title):
        wait_for(lambda: self.program.title() == title, f"the title {title}")

    def open_by_dialog(self, path):
        dialog = Dialog(self.program, "Open File", "ctrl+o")
        dialog.type(shown_path(path))
        dialog.close()
        self.wait_for_title(f"Norvaset [BoDerek] - {shown_path(path)}")

    def choose_second_profile(self):
        """The last item of the Profile menu."""
        self.program.open_menu("p")
        self.program.key("Up", "Return")

    def test_to_and_fro(self):
        self.program.start()
        self.program.wait_for_book(self.mine)
        self.add(" Bo Derek")
        self.wait_for_title("Norvaset [BoDerek]")
        self.open_by_dialog(self.yours)
        self.program.key("ctrl+plus", "ctrl+plus")
        self.program.finish_keys()

        self.choose_second_profile()
        self.wait_for_title(f"Norvaset [Default] - {shown_path(self.mine)}")
        self.program.close()
        data = self.program.data()
        self.assertEqual(data.paths("Default"), [self.mine])
        self.assertEqual(data.paths("BoDerek"), [self.yours])
        self.assertEqual([data.value("mProfileList", key) for key in "01"], ["Default", "BoDerek"])

        self.program.start()
        self.wait_for_title(f"Norvaset [Default] - {shown_path(self.mine)}")
        self.choose_second_profile()
        self.wait_for_title(f"Norvaset [BoDerek] - {shown_path(self.yours)}")
        self.program.close()
        sizes = [self.program.data().records(name)[0]["FontSize"] for name in ("Default", "BoDerek")]
        self.assertEqual(sizes, ["12", "14"])

    def test_each_has_a_window_place_of_its_own(self):
        self.program.start()
        self.program.wait_for_book(self.mine)
        self.resize(700, 500)
        self.add("Ann")
        self.wait_for_title("Norvaset [Ann]")
        self.program.close()
        self.program.start()
        self.resize(900, 600)
        for title, size in (("Default", (700, 500)), ("Ann", (900, 600))) * 2:
            self.choose_second_profile()
            wait_for(lambda: f"[{title}]" in self.program.title(), f"the profile {title}")
            wait_for(lambda: self.program.rectangle()[2:] == size, f"the size of {title}")
        self.program.close()
        self.program.start()
        wait_for(lambda: self.program.rectangle()[2:] == (900, 600), "Ann's size after a restart")
        self.program.close()

    def resize(self, width, height):
        """Once the window has settled: just after a placement it takes the window manager's doings
        for answers to its own wishes."""
        wait_for(lambda: "Icon (16 x 16)" in self.program.property("_NET_WM_ICON"), "the icon")
        self.program.resize(width, height)
        self.program.finish_keys()

    def test_a_name_that_cannot_be(self):
        self.program.start()
        self.program.wait_for_book(self.mine)
        before = self.program.data_bytes()
        self.program.open_menu("p")
        dialog = Dialog(self.program, "Add New...", "n")
        dialog.type("who?")
        dialog.key("Return")
        box = wait_for(lambda: self.program.window_named("Norvaset"), "the message")
        self.program.key("Return")
        wait_for(lambda: not self.program.window_exists(box), "the message to go")
        self.assertEqual(self.program.data_bytes(), before)
        self.program.close()


if __name__ == "__main__":
    main()
