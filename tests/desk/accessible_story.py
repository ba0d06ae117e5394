"""A book as a screen reader finds it."""
import sys

from harness import books
from harness import screen_reader as eyes
from harness.clipboard import copied
from harness.html_story import HtmlStory, paragraphs, write_page
from harness.story import SKIPPED, Story, main
from harness.wait import wait_for

LINE_LENGTH = 64  # bytes of the numbered lines of a large book, with the line feed
LARGE = 100 * 2**20 // LINE_LENGTH  # lines
MOST_AT_ONCE = 256 * 1024  # units that one answer holds
TEXT = "document frame"
KINDS = (eyes.WORD, eyes.SENTENCE, eyes.LINE, eyes.CHARACTER)


def end_of(view):
    return next(thing for thing in eyes.all_within(view) if thing.get_name() == "The end")


class Accessible(HtmlStory):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.listener = eyes.ScreenReader(cls.screen)
        cls.listener.listen("object:text-caret-moved", "object:text-selection-changed",
                            "object:text-changed", "object:state-changed:focused",
                            "object:property-change:accessible-name",
                            "object:property-change:accessible-description")

    @classmethod
    def tearDownClass(cls):
        cls.listener.stop()
        super().tearDownClass()

    def open_text(self, path, **options):
        """A reader of this book, and the accessible object of its text."""
        program = self.reader(**options).start(path)
        program.wait_for_book(path)
        return program, self.accessible_text(program)

    def accessible_text(self, program):
        return eyes.find(self.listener.window(program.process), TEXT)

    def book(self, name, texts):
        path = books.write_book(self.path(name), texts)
        program, view = self.open_text(path)
        return program, view, "".join(text + "\n" for text in texts)

    def test_a_book_is_read_from_its_first_to_its_last_line(self):
        program, view, text = self.book("lanterns.txt", books.long_paragraphs("accents", 15))
        self.assertEqual(view.get_name(), "lanterns.txt")
        self.assertLessEqual({"focusable", "focused", "read-only", "multi-line", "showing"},
                             eyes.states(view))
        self.assertEqual(view.get_character_count(), len(text))
        self.assertEqual(view.get_text(0, -1), text)
        for kind in KINDS:
            self.assertEqual("".join(eyes.read_on(view, 0, kind)), text)
        lines = list(eyes.read_on(view, 0, eyes.LINE))
        self.assertGreater(len(lines), 30)  # of the screen, not of the file
        self.assertEqual(list(eyes.read_on(view, 0, eyes.WORD, 3)), ["00001  ", "l'été", ", "])
        paragraph = eyes.paragraph_at(view, 400)
        self.assertIn(paragraph, (None, text[:text.index("\n", 400) + 1]
                                  [text.rfind("\n", 0, 400) + 1:]))
        program.close()

    def test_caret_and_selection_are_heard_and_set(self):
        program, view, text = self.book("lanterns.txt", books.lines("latin", 3000))
        second = text.index("\n") + 1
        self.listener.heard()
        program.key("Down")
        self.hear("object:text-caret-moved", second)
        self.assertEqual(view.get_caret_offset(), second)
        program.key("shift+End")
        self.hear("object:text-selection-changed")
        selection = view.get_selection(0)
        self.assertEqual(text[selection.start_offset:selection.end_offset],
                         text[second:].split("\n", 1)[0])

        far = text.index("\n01500 ") + 1
        view.set_caret_offset(far)
        self.hear("object:text-caret-moved", far)
        self.assertEqual(view.get_n_selections(), 0)
        left, top, width, height = program.rectangle()
        x, y, _, line_height = eyes.box(view, far)
        self.assertTrue(left <= x < left + width and top <= y < top + height - line_height)
        self.assertEqual(eyes.offset_at(view, x + 2, y + line_height // 2), far)
        self.assertGreater(eyes.box(view, len(text) - 2)[1], top + height)  # further down
        self.assertLess(eyes.box(view, 0)[1], top)

        view.set_selection(0, far, far + 20)
        self.assertEqual(copied(program), text[far:far + 20])
        view.remove_selection(0)
        self.assertEqual(view.get_n_selections(), 0)
        program.close()

    def hear(self, kind, number=None):
        self.listener.wait_for_event(
            lambda heard, detail: heard == kind and number in (None, detail), kind)

    def test_the_text_is_called_by_its_caption(self):
        program, view, text = self.book("lanterns.txt", books.lines("latin", 20))
        view.set_selection(0, 6, 6 + 19)
        window = self.listener.window(program.process)
        menu = eyes.find(window, "menu item", "Edit")
        eyes.press(menu)
        eyes.find(menu, "menu item", "Set Selection as Caption")
        self.listener.heard()
        program.key("s")
        caption = text[6:6 + 19].strip()
        # The keyboard is said to be in the text again.
        self.hear("object:state-changed:focused", 1)
        wait_for(lambda: view.get_name() == caption, "the text to be called by its caption")
        self.assertIn("focused", eyes.states(view))
        program.close()

    def test_keys_that_change_the_lines_are_announced(self):
        program, view, _ = self.book("lanterns.txt", books.lines("latin", 200))
        self.assertEqual(view.get_description(), "")
        for key, announced in (("ctrl+shift+m", "Lines take the whole width."),
                               ("ctrl+shift+m", "Lines stand in a column."),
                               ("ctrl+shift+u", "Lines flow on as paragraphs."),
                               ("ctrl+shift+u", "Lines end as in the file.")):
            self.listener.heard()
            program.key(key)
            self.hear("object:property-change:accessible-description")
            wait_for(lambda: view.get_description() == announced, announced)
        self.go_to(program, "Escape")  # what was said once is not said again
        wait_for(lambda: view.get_description() == "", "the announcement to be over")
        program.close()

    def test_full_screen_and_scrolling_by_itself_are_announced(self):
        program, view, _ = self.book("lanterns.txt", books.lines("latin", 3000))
        for key, announced in (("F11", "Full screen. Escape ends it."),
                               ("ctrl+shift+s", "Scrolling by itself. Any key ends it."),
                               ("plus", "Speed 6 of 12."),
                               ("space", "Scrolling has ended."),
                               ("Escape", "No full screen any more.")):
            program.key(key)
            wait_for(lambda: view.get_description() == announced, announced)
        program.close()

    def go_to(self, program, *keys):
        """The dialog, which the keys close."""
        program.key("ctrl+g")
        dialog = self.listener.window(program.process, "Go To")
        found = {role: eyes.find(dialog, role).get_name() for role in ("spin button", "text", "list")}
        program.key(*keys)
        wait_for(program.is_active, "the window to have the keyboard")
        return found

    def test_the_place_to_go_to_is_asked_for_by_names(self):
        program, view, text = self.book(
            "lanterns.txt", ["The quay", "", ""] + books.lines("latin", 30)
            + ["", "", "CHAPTER II", ""] + books.lines("cyrillic", 30))
        named = self.go_to(program, "alt+h", "I", "I", "Return")
        self.assertEqual(named, {"spin button": "Per cent of the book:",
                                 "text": "Heading (type a part of it):", "list": "List of headings:"})
        wait_for(lambda: view.get_caret_offset() == text.index("CHAPTER II"), "the chapter")
        program.close()

    def test_the_empty_window_says_how_to_open_a_book(self):
        program = self.reader().start()
        self.assertEqual(self.accessible_text(program).get_name(),
                         "Open a book with Ctrl+O, or drop it here. Read the welcome book (Enter)")
        program.key("Return")
        wait_for(lambda: self.accessible_text(program).get_character_count() > 0, "the welcome book")
        program.close()

    def test_another_book_is_announced(self):
        program, _, text = self.book("lanterns.txt", books.lines("latin", 20))
        program.close()
        other = books.write_book(self.path("other.txt"), ["Another book."])
        program.start(other).wait_for_book(other)
        view = self.accessible_text(program)
        self.choose_the_book_before(program)
        self.hear("object:text-changed:insert", len(text))
        wait_for(lambda: view.get_name() == "lanterns.txt", "the other book's name")
        self.assertEqual(view.get_text(0, -1), text)
        program.close()

    def choose_the_book_before(self, program):
        """From the File menu, opened without keys."""
        eyes.press(eyes.find(self.listener.window(program.process), "menu item", "File"))
        wait_for(program.popups, "the File menu")
        self.listener.heard()
        program.key("Up", "Up", "Return")  # above Exit: the books, the latest first

    def test_a_table_is_read_cell_by_cell(self):
        path = books.write_rtf_book(self.path("lanterns.rtf"), books.lines("latin", 10))
        program, view = self.open_text(path)
        text = view.get_text(0, -1)
        self.assertTrue(text.endswith("\n\ufffc\nrow 9\t00010\t\n"), text[-40:])
        lines = list(eyes.read_on(view, 0, eyes.LINE))
        self.assertEqual(lines[-3:], ["\ufffc\n", "row 9\t", "00010\t\n"])
        row = len(text) - len("row 9\t00010\t\n")
        first, second = eyes.box(view, row), eyes.box(view, row + len("row 9\t"))
        self.assertEqual(first[1], second[1])
        self.assertGreater(second[0], first[0] + 100)
        program.close()

    def test_the_middle_of_a_large_book(self):
        def line(number):
            return f"line {number:08} ".ljust(LINE_LENGTH - 1, "x") + "\n"
        path = self.path("large.txt")
        with open(path, "w", encoding="ascii") as file:
            for start in range(0, LARGE, 4096):
                file.write("".join(line(n) for n in range(start, min(start + 4096, LARGE))))
        program, view = self.open_text(path)
        self.assertEqual(view.get_character_count(), LARGE * LINE_LENGTH)
        middle = LARGE // 2
        at = middle * LINE_LENGTH
        self.assertEqual(view.get_text(at, at + 2 * LINE_LENGTH), line(middle) + line(middle + 1))
        self.assertEqual(eyes.at(view, at + 5, eyes.WORD)[0], f"{middle:08} ")
        view.set_caret_offset(at)
        self.assertEqual(eyes.at(view, view.get_caret_offset(), eyes.SENTENCE)[0], line(middle))
        self.assertEqual(list(eyes.read_on(view, at, eyes.LINE, 3)),
                         [line(middle + i) for i in range(3)])
        self.assertEqual(len(view.get_text(0, -1)), MOST_AT_ONCE)
        program.close()

    def test_hebrew_is_read_in_its_order_and_found_on_its_side(self):
        program, view, text = self.book("lanterns.txt", books.lines("hebrew", 30))
        self.assertEqual(view.get_text(0, -1), text)
        self.assertEqual("".join(eyes.read_on(view, 0, eyes.WORD)), text)
        place = text.index("הפנסים")
        first, second = eyes.box(view, place), eyes.box(view, place + 1)
        self.assertGreater(first[0], second[0])
        self.assertEqual(eyes.offset_at(view, first[0] + first[2] // 2, first[1] + 5), place)
        program.close()

    def test_a_hebrew_title_in_the_file_menu_keeps_its_direction(self):
        program, view, text = self.book("lanterns.txt", books.lines("hebrew", 20))
        view.set_selection(0, 6, 6 + 19)
        title = text[6:6 + 19].strip()
        eyes.press(eyes.find(self.listener.window(program.process), "menu item", "Edit"))
        wait_for(program.popups, "the Edit menu")
        program.key("s")
        wait_for(lambda: view.get_name() == title, "the text to be called by its caption")
        program.close()
        other = books.write_book(self.path("other.txt"), ["Another book."])
        program.start(other).wait_for_book(other)
        menu = eyes.find(self.listener.window(program.process), "menu item", "File")
        eyes.press(menu)
        # The path stays left of the "=", and the title, which reads from the right, after it.
        shown = f"{self.path('lanterns.txt')}\t= \u202b{title}\u202c"

        def names():
            return [item.get_name() for item in eyes.all_within(menu)]
        wait_for(lambda: any(name.endswith(shown) for name in names()), "the title")
        program.key("Escape", "Escape")
        program.close()

    def test_emoji_are_whole(self):
        family, flag = "\U0001F468\u200D\U0001F469\u200D\U0001F467", "\U0001F1EB\U0001F1EE"
        program, view, text = self.book("smile.txt", [f"a\U0001F600b {family} c {flag} d",
                                                      "e\u0301 and \U0001D11E."])
        characters = list(eyes.read_on(view, 0, eyes.CHARACTER))
        self.assertEqual("".join(characters), text)
        self.assertLessEqual({"\U0001F600", family, flag, "e\u0301", "\U0001D11E"},
                             set(characters))
        for kind in KINDS:
            self.assertEqual("".join(eyes.read_on(view, 0, kind)), text)
        program.close()

    def test_a_page_without_an_engine_is_read_like_a_text_and_by_its_structure(self):
        lines = books.long_paragraphs("accents", 12)
        page = write_page(self.path("lanterns.htm"), "<h1>The quay</h1>" + paragraphs(lines) +
                          '<p>See <a href="#end">the end</a> or <a href="other.htm">another</a>.'
                          "<ul><li>One boat<li>Two boats</ul><table><tr><td>oil<td>wick</table>"
                          '<img src="no.png" alt="A lantern">' + paragraphs(lines) +
                          '<h2 id="end">The end</h2>')
        program = Story.reader(self).start(page)  # no engine beside it
        program.wait_for_book("Lanterns")
        view = eyes.find(self.listener.window(program.process), "document web", "Lanterns")
        text = view.get_text(0, -1)
        self.assertTrue(text.startswith("The quay\n" + " ".join(lines[0].split())), text[:80])
        self.assertTrue(text.endswith("\nThe end"), text[-80:])
        self.assertLessEqual({"focused", "read-only", "multi-line"}, eyes.states(view))
        for kind in KINDS:
            self.assertEqual("".join(eyes.read_on(view, 0, kind)), text)
        self.assertGreater(len(list(eyes.read_on(view, 0, eyes.LINE))), 40)
        self.assertEqual(eyes.attributes(view, 2)["weight"], "bold")
        left, top, _, height = eyes.box(view, 4)
        self.assertEqual(eyes.offset_at(view, left + 2, top + height // 2), 4)

        self.assertEqual(eyes.find(view, "heading", "The quay").get_description(), "Heading level 1")
        # Further down; so not "showing".
        found = {(thing.get_role_name(), thing.get_name()) for thing in eyes.all_within(view)}
        self.assertLessEqual({("heading", "The end"), ("list item", "Two boats"),
                              ("table cell", "wick"), ("image", "A lantern")}, found)
        self.listener.heard()
        program.key("Tab")
        self.hear("object:state-changed:focused", 1)
        link = eyes.find(view, "link", "the end")
        self.assertEqual(link.get_description(), "#end")
        eyes.press(link)
        wait_for(lambda: "showing" in eyes.states(end_of(view)), "the end to come into view")
        view.set_selection(0, 4, 8)
        self.assertEqual(copied(program), "quay")
        program.key("F11")
        wait_for(lambda: view.get_description() == "Full screen. Escape ends it.", "full screen")
        program.key("Escape")
        program.close()

    def test_a_page_is_read_too(self):
        page = write_page(self.path("lanterns.htm"), "<h1>The quay</h1>" + paragraphs(
            ["The miller counted.", "She found twelve."]))
        program, _, text = self.book("lanterns.txt", books.lines("latin", 20))
        program.close()
        program = self.open(page, "Lanterns", program)
        document = eyes.find(self.listener.window(program.process), "document web", "Lanterns")
        self.assertTrue(eyes.find(document, "heading", "The quay"))
        self.assertTrue(eyes.find(document, "label", "She found twelve."))
        self.choose_the_book_before(program)
        self.hear("object:text-changed:insert", len(text))
        self.assertEqual(self.accessible_text(program).get_text(0, -1), text)
        program.close()


if __name__ == "__main__":
    if not eyes.is_installed():
        print("skipped; not found: what a screen reader needs")
        sys.exit(SKIPPED)
    main()
