"""A journey: a book comes into the reader on some way; then what shows it, what would edit it, what
the list holds of it, and whether it comes back to its place."""
import os
import shutil
import time

from harness import journeys
from harness.clipboard import AGAIN, clipboard, fill
from harness.html_story import MODULE, SLACK
from harness.open_dialog import OpenDialog
from harness.story import Story
from harness.text_view import settled_strip, top_strip
from harness.wait import wait_for
from harness.wine import ON_WINE, PROGRAM, shown_path

HELPER = os.environ.get("WINDOWS_HELPER", "")
ONCE_MORE = 1  # seconds; Wine hands out no copy while it is asked for the next one
EDITORS = ("text-editor", "rich-editor", "page-editor")  # by kind; other files have none
EDITOR = '#!/bin/sh\nprintf "%s:%s" "${{0##*/}}" "$1" > {output}\n'


class JourneyStory(Story):
    def setUp(self):
        self.program, self.editor_output = self.reader(), self.path("editor-output")
        if not ON_WINE:
            shutil.copy(os.path.join(os.path.dirname(PROGRAM), MODULE), self.program.folder)
        self.program.variables = {"NORVASET_HELPER_DOES": "names",
                                  "NORVASET_HELPER_OUTPUT": shown_path(self.editor_output)}
        self.expected = {}  # kinds by path, the book shown last at the end

    def start(self, *arguments):
        self.program.start(*arguments)
        self.choose_editors()

    def choose_editors(self):
        for name, key in zip(EDITORS, "trh"):
            editor = self._make_editor(name)
            self.program.wait_until_idle()
            self.program.open_menu("o")
            dialog = OpenDialog(self.program, "Set .*", key)
            dialog.type_path(editor)
            dialog.close()

    def _make_editor(self, name):
        if ON_WINE:
            return shutil.copy(HELPER, self.path(name + ".exe"))
        with open(self.path(name), "w", encoding="ascii") as file:
            file.write(EDITOR.format(output=self.editor_output))
        os.chmod(self.path(name), 0o755)
        return self.path(name)

    def books(self, way, folder="books"):
        """The books of this way, in a new folder, and the kinds that they shall get."""
        os.makedirs(self.path(folder))
        column = journeys.cells_run(way, ON_WINE)
        return {journeys.write(self.path(folder), name): kind for name, kind in column.items()}

    def arrive(self, path, kind, profile="Default"):
        """The book has just come in: looks at all that there is of it, and reads on."""
        self.expected[path] = kind
        self.program.wait_for_book(path, profile)
        self.assert_shown(path, kind)
        self.assert_editor(path, kind)
        self.read_on()

    def assert_shown(self, path, kind):
        wanted = " ".join(journeys.first_line(path, kind).split())
        fill(self.screen)
        copied, pressed = "", 0

        def begins_so():
            nonlocal copied, pressed
            if time.monotonic() - pressed > ONCE_MORE:
                self.program.key("ctrl+a", "ctrl+c")
                pressed = time.monotonic()
            copied = clipboard(self.screen)
            if kind == journeys.PAGE:
                return " ".join(copied[:500].split()).startswith(wanted)
            return " ".join(copied.split("\n", 1)[0].split()) == wanted
        try:
            wait_for(begins_so, "the book to be shown")
        except AssertionError:
            self.fail(f"{path}, kind {kind}, shows {copied[:200]!r} instead of {wanted!r}")
        self.program.wait_until_idle()  # of keys pressed once more

    def assert_editor(self, path, kind):
        if os.path.exists(self.editor_output):
            os.remove(self.editor_output)
        self.program.open_menu("f")
        self.program.key("e")
        if kind >= len(EDITORS):  # greyed: the menu stays
            self.program.close_menu()
            self.program.finish_keys()
            self.assertFalse(os.path.exists(self.editor_output), f"an editor for {path}")
            return
        wait_for(lambda: self._told().endswith(shown_path(path)), f"the editor of {path}")
        self.assertTrue(self._told().startswith(EDITORS[kind]), f"{self._told()}, kind {kind}")

    def _told(self):
        try:
            with open(self.editor_output, encoding="utf-16-le" if ON_WINE else "utf-8") as file:
                return file.read()
        except (FileNotFoundError, UnicodeDecodeError):
            return ""

    def read_on(self):
        """To the second page, with a click first, as by a hand that is at the mouse anyway; a key may
        be lost while another program comes and goes."""
        self.program.activate()
        left, top, width, height = self.program.rectangle()
        self.program.click(left + width // 2, top + height // 2)
        self.program.key("ctrl+Home")
        first = settled_strip(self.program)
        pressed = time.monotonic() - AGAIN

        def turned():
            nonlocal pressed
            if time.monotonic() - pressed > AGAIN:
                self.program.key("ctrl+Home", "Next")
                pressed = time.monotonic()
            strip = top_strip(self.program.picture())
            return strip and not strip.looks_like(first)
        wait_for(turned, "the next page")

    def records(self, profile="Default"):
        """By path, as the data file has them; each kind must be the expected one."""
        found = dict(zip(self.program.data().paths(profile), self.program.data().records(profile)))
        for path, kind in self.expected.items():
            self.assertEqual(found[path]["Filter"], str(kind), path)
            self.assertGreater(found[path]["LastPos"], 0, path)
        return found

    def come_back(self, profile="Default"):
        """Starts again and chooses each book from the list: it is what it was, where it was."""
        self.program.close()
        before = self.records(profile)
        self.program.start()
        for number in range(len(before)):
            if number > 0:
                self.program.choose_book(len(before) - 1, len(before))
            path = self._next_in_list(before, number)
            self.program.wait_for_book(path, profile)
            settled_strip(self.program)
        self.program.close()
        for path, record in self.records(profile).items():
            slack = SLACK if self.expected[path] == journeys.PAGE else 0
            self.assertAlmostEqual(record["LastPos"], before[path]["LastPos"], delta=slack, msg=path)

    def _next_in_list(self, before, number):
        order = list(before)
        return order[0] if number == 0 else order[-number]
