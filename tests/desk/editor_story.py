"""The book in the reader's editor, which is another program."""
import os
import shutil
import signal
import unittest
import unittest.mock

from harness import books
from harness.data_file import data_file_bytes, record_line
from harness.open_dialog import OpenDialog
from harness.story import Story, main
from harness.wait import wait_for
from harness.wine import ON_WINE, shown_path
from harness.words import can_read, words_shown

HELPER = os.environ.get("WINDOWS_HELPER", "")  # writes down its arguments


class Editor(Story):
    def prepare(self, program, book, editor=None, kind=0):
        """A data file that knows the book and, for its kind, this editor."""
        with open(program.data_path, "wb") as file:
            file.write(data_file_bytes(record_line(book, Wrap=1, Filter=kind)))
            if editor:
                file.write(f"[fwMain]\r\nmOptionsEditor-{kind}={editor}\r\n".encode())

    def choose_editor(self, program):
        program.open_menu("f")
        program.key("e")

    def wait_for_editor(self, kind, title):
        """The process of the editor whose window shows the book."""
        def window():
            found = self.screen.xdotool("search", "--onlyvisible", "--class", kind).split()
            return next((one for one in found
                         if title in self.screen.xdotool("getwindowname", one)), None)
        shown = wait_for(window, "the editor's window with the book")
        return int(self.screen.xdotool("getwindowpid", shown))

    def assert_lives_on(self, process):
        os.kill(process, 0)
        os.kill(process, signal.SIGTERM)

    @unittest.skipIf(ON_WINE, "there the default is a program of the system")
    def test_text_opens_with_the_desktops_program(self):
        book = books.write_book(self.path("two words – é.txt"), books.lines("latin", 100))
        program = self.reader().start(book)
        program.wait_for_book(book)
        self.choose_editor(program)
        wait_for(lambda: program.opened() == [book], "the editor to be started")
        program.close()

    def shown_options(self, program):
        """The words in the Options menu."""
        menu = program.open_menu("o")

        def words():
            shown = words_shown(self.screen, menu)
            return "Filename" in shown and shown
        shown = wait_for(words, "the menu to be painted")
        program.close_menu()
        return shown

    @unittest.skipIf(ON_WINE or not can_read(), "the desktop's names, read off the screen")
    def test_the_menu_has_the_editors_desktop_name(self):
        program = self.reader()
        entries = os.path.join(program.home, "share/applications")
        os.makedirs(entries)
        for name in ("Quill", "Pencil"):
            with open(os.path.join(entries, f"org.example.{name}.desktop"), "w", encoding="ascii") as file:
                file.write(f"[Desktop Entry]\nType=Application\nName={name} Writer\nExec={name.lower()} %F\n")
        lists = {"mimeapps.list": "[Default Applications]\ntext/plain=org.example.Quill.desktop\n",
                 "mimeinfo.cache": "[MIME Cache]\napplication/rtf=org.example.Pencil.desktop;\n"}
        for name, text in lists.items():
            with open(os.path.join(entries, name), "w", encoding="ascii") as file:
                file.write(text)
        book = books.write_book(self.path("lanterns.txt"), books.lines("latin", 100))
        self.prepare(program, book, self.path("pencil"), kind=1)
        program.start(book)
        program.wait_for_book(book)
        words = self.shown_options(program)
        self.assertIn("QuillWriter", words)
        self.assertIn("PencilWriter", words)
        self.assertNotIn("xdg", words)
        program.close()

    def test_an_editor_is_looked_for_where_programs_are(self):
        """By a name alone, in the folder where the dialog begins."""
        name, path = ((r"windows\notepad.exe", r"C:\windows\notepad.exe") if ON_WINE
                      else ("env", "/usr/bin/env"))
        book = books.write_book(self.path("lanterns.txt"), books.lines("latin", 100))
        program = self.reader().start(book)
        program.wait_for_book(book)
        program.open_menu("o")
        dialog = OpenDialog(program, "Set RTF Editor", "r")
        dialog.type_name(name)
        dialog.close()
        wait_for(lambda: (program.data().value("fwMain", "mOptionsEditor-1") or "").lower() == path.lower(),
                 f"the editor to be {path}")
        program.close()

    @unittest.skipUnless(ON_WINE, "other stories cover the desktop's opener")
    def test_text_opens_with_the_systems_editor(self):
        book = books.write_book(self.path("two words – é.txt"), books.lines("latin", 100))
        program = self.reader().start(book)
        program.wait_for_book(book)
        self.choose_editor(program)
        process = self.wait_for_editor("notepad.exe", os.path.basename(book))
        program.activate()
        program.close()
        self.assert_lives_on(process)

    @unittest.skipIf(ON_WINE, "the systems' names differ")
    def test_a_real_editor(self):
        """The reader's own choice of program, and the book in that program's window."""
        editor = shutil.which("mousepad")
        if not editor:
            self.skipTest("mousepad is not installed")
        book = books.write_book(self.path("it's \"mine\" $HOME; `x`.txt"), books.lines("latin", 100))
        program = self.reader()
        self.prepare(program, book, editor)
        program.start()
        program.wait_for_book(book)
        self.choose_editor(program)
        process = self.wait_for_editor("mousepad", os.path.basename(book))
        program.activate()
        program.close()
        self.assert_lives_on(process)

    @unittest.skipUnless(ON_WINE, "the systems' names differ")
    def test_an_editor_gets_the_path_as_one_argument(self):
        editor, said = self.path("my editor.exe"), self.path("said")
        shutil.copy(HELPER, editor)
        os.mkdir(said)
        program = self.reader()
        variables = {"NORVASET_HELPER_DOES": "records", "NORVASET_HELPER_OUTPUT": shown_path(said)}

        def started():
            return [entry.path for entry in os.scandir(said) if entry.name.endswith(".started")]
        names = ("it's 'mine' %HOME%; `x` & é.txt", "-switch.txt", "two  blanks.rtf")
        for name in names:
            with self.subTest(name=name), \
                    unittest.mock.patch.dict(self.screen.environment, variables):
                rich = name.endswith(".rtf")
                write = books.write_rtf_book if rich else books.write_book
                book = write(self.path(name), books.lines("latin", 100))
                self.prepare(program, book, shown_path(editor), kind=int(rich))
                program.start()
                program.wait_for_book(book)
                self.choose_editor(program)
                (record,) = wait_for(started, "the editor to be started")
                with open(record, encoding="utf-16-le") as file:
                    self.assertEqual(file.read(), shown_path(book) + "\0")
                os.remove(record)
                program.close()

    def test_greyed_without_an_editor_or_a_book(self):
        book = books.write_rtf_book(self.path("lanterns.rtf"), books.lines("latin", 100))
        program = self.reader()
        self.prepare(program, book, kind=1)
        for _ in ("with a book that has no editor", "without a book"):
            program.start()
            program.open_menu("f")
            program.key("e")
            program.close_menu()
            program.finish_keys()
            self.assertEqual(program.windows(), [program.window])
            program.close()
            self.assertEqual(program.opened(), [])
            if os.path.exists(book):
                os.remove(book)


if __name__ == "__main__":
    main()
