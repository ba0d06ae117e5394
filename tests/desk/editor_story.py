"""The book in the reader's editor, which is another program."""
import os
import shutil
import signal

from harness import books
from harness.data_file import data_file_bytes, record_line
from harness.story import Story, main
from harness.wait import wait_for


class Editor(Story):
    def opened(self, program):
        """What was handed to the desktop's opener."""
        if not os.path.exists(program.opened_path):
            return ""
        with open(program.opened_path, encoding="utf-8") as file:
            return file.read()

    def test_text_opens_with_the_desktops_program(self):
        book = books.write_book(self.path("two words – é.txt"), books.lines("latin", 100))
        program = self.reader().start(book)
        program.wait_for_book(book)
        program.open_menu("f")
        program.key("e")
        wait_for(lambda: self.opened(program) == book + "\n", "the editor to be started")
        program.close()

    def test_a_real_editor(self):
        """The reader's own choice of program, and the book in that program's window."""
        editor = shutil.which("mousepad")
        if not editor:
            self.skipTest("mousepad is not installed")
        book = books.write_book(self.path("it's \"mine\" $HOME; `x`.txt"), books.lines("latin", 100))
        program = self.reader()
        with open(program.data_path, "wb") as file:
            file.write(data_file_bytes(record_line(book, Wrap=1)))
            file.write(f"[fwMain]\r\nmOptionsEditor-0={editor}\r\n".encode())
        program.start()
        program.wait_for_book(book)
        program.open_menu("f")
        program.key("e")
        title = os.path.basename(book)

        def editor_window():
            windows = self.screen.xdotool("search", "--onlyvisible", "--class", "mousepad").split()
            return next((w for w in windows
                         if title in self.screen.xdotool("getwindowname", w)), None)
        window = wait_for(editor_window, "the editor's window with the book")
        process = int(self.screen.xdotool("getwindowpid", window))
        program.activate()
        program.close()
        os.kill(process, 0)  # it lives on without the reader
        os.kill(process, signal.SIGTERM)

    def test_greyed_without_an_editor_or_a_book(self):
        book = books.write_rtf_book(self.path("lanterns.rtf"), books.lines("latin", 100))
        program = self.reader()
        with open(program.data_path, "wb") as file:
            file.write(data_file_bytes(record_line(book, Wrap=1, Filter=1)))
        for _ in ("with a book that has no editor", "without a book"):
            program.start()
            program.open_menu("f")
            program.key("e")
            program.close_menu()
            program.finish_keys()
            program.close()
            self.assertEqual(self.opened(program), "")
            if os.path.exists(book):
                os.remove(book)


if __name__ == "__main__":
    main()
