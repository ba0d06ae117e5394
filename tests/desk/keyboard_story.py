"""Whichever way another book comes into the window, its view has the keyboard: no click comes first."""
import os
import shutil
import urllib.parse

from harness import books
from harness.dialog import Dialog
from harness.drag import drop, needs_drag_source
from harness.html_story import MODULE, paragraphs, write_page
from harness.open_dialog import OpenDialog
from harness.story import Story, main
from harness.text_view import settled_strip, wait_for_strip
from harness.wait import wait_for
from harness.wine import ON_WINE, PROGRAM, shown_path

LINES = books.lines("latin", 400)


class Keyboard(Story):
    def setUp(self):
        self.program = self.reader()
        self.texts = [books.write_book(self.path(name), LINES) for name in ("quay.txt", "mill.txt")]
        if not ON_WINE:  # where pages have no engine, and are shown without
            shutil.copy(os.path.join(os.path.dirname(PROGRAM), MODULE), self.program.folder)
        link = '<p><a href="mill.htm">to the mill</a></p>'
        self.pages = [write_page(self.path(name), link + paragraphs(LINES), name)
                      for name in ("quay.htm", "mill.htm")]
        self.program.start(self.texts[0])
        self.arrive(self.texts[0])

    def arrive(self, path, profile="Default"):
        name = os.path.basename(path) if path in self.pages else shown_path(path)
        wait_for(lambda: self.program.title() == f"Norvaset [{profile}] - {name}", f"the book {path}")
        self.read()

    def read(self):
        """Each key once; a menu that was looked into changes nothing."""
        top = settled_strip(self.program)
        self.program.key("Next")
        wait_for(lambda: not settled_strip(self.program).looks_like(top), "the second page")
        self.program.open_menu("f")
        self.program.close_menu()
        self.program.key("ctrl+Home")
        wait_for_strip(self.program, top)

    def each_after_each(self):
        """Text after text, page after text, page after page, text after page."""
        return [self.texts[1], *self.pages, self.texts[0]]

    def test_the_menu_key_after_a_menu_was_left(self):
        self.program.open_menu("f")
        self.program.close_menu()
        self.program.key("Menu")
        wait_for(self.program.popups, "the menu of the text")
        self.program.key("Escape")
        wait_for(lambda: not self.program.popups(), "the menu to close")
        self.program.close()

    @needs_drag_source
    def test_dropped(self):
        for path in self.each_after_each():
            with self.subTest(path=path):
                drop(self, b"file://" + urllib.parse.quote(path).encode())
                self.program.activate()  # the keyboard is still that of the other program
                self.arrive(path)
        self.program.close()

    def test_opened_and_chosen(self):
        for path in self.each_after_each():
            with self.subTest(way="dialog", path=path):
                dialog = OpenDialog(self.program)
                dialog.choose_type("page" if path in self.pages else "text")
                dialog.type_path(path)
                dialog.close()
                self.arrive(path)
        for path in self.each_after_each():
            with self.subTest(way="history", path=path):
                self.program.wait_until_idle()
                listed = self.program.data().paths()
                self.program.choose_book(listed.index(path), len(listed))
                self.arrive(path)
        self.program.close()

    def test_profiles(self):
        book = self.pages[-1]
        self.program.close()
        self.program.start()  # a book named at the start would come along into each profile
        self.program.wait_for_book(self.texts[0])
        self.program.open_menu("p")
        dialog = Dialog(self.program, "Add New...", "n")
        dialog.type("Ann")
        dialog.close()
        wait_for(lambda: "[Ann]" in self.program.title(), "the second profile")
        dialog = OpenDialog(self.program)
        dialog.choose_type("all")
        dialog.type_path(book)
        dialog.close()
        self.arrive(book, "Ann")
        for path, profile in ((self.texts[0], "Default"), (book, "Ann")):
            with self.subTest(profile=profile):
                self.program.open_menu("p")
                self.program.key("Up", "Return")  # the last one
                self.arrive(path, profile)
        self.program.close()

    def test_link(self):
        self.program.close()
        self.program.start(self.pages[0])
        self.arrive(self.pages[0])
        self.program.key("Tab", "Return")
        self.arrive(self.pages[1])
        self.program.close()


if __name__ == "__main__":
    main()
