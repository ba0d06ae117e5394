"""Paragraphs that a shaper chokes on: the window goes on answering, and the memory stays bounded."""
from harness import books
from harness.clipboard import copied
from harness.dialog import Dialog
from harness.story import Story, main
from harness.text_view import settled_strip

MANY = 1_000_000
MOST_MEMORY = 250 * 1024  # KB; the reader with an ordinary book of this size takes some 60 MB
END = " needle end"


class Dense(Story):
    def read(self, path):
        """Looks at the beginning, the middle and the end, with keys and the mouse, and searches."""
        program = self.reader().start(path)
        program.wait_for_book(path)
        left, top, width, height = program.rectangle()
        self.screen.xdotool("mousemove", left + width // 2, top + height // 2, "click", 1)
        program.key("Next", "Down", "Right", "ctrl+End", "Prior", "ctrl+Home")
        dialog = Dialog(program, "Find", "ctrl+f")
        dialog.type("needle")
        dialog.close()
        self.assertEqual(copied(program), "needle")
        program.open_menu("v")
        program.key("w")
        program.finish_keys()
        program.key("Escape", "ctrl+Home", "Next")
        settled_strip(program)
        self.assertLess(self.peak(program), MOST_MEMORY)
        program.close()

    def peak(self, program):
        with open(f"/proc/{program.process.pid}/status", encoding="ascii") as file:
            return next(int(line.split()[1]) for line in file if line.startswith("VmHWM"))

    def test_marks_on_one_letter(self):
        self.read(books.write_book(self.path("marks.txt"), ["a" + "\u0301" * MANY + END]))

    def test_marks_in_a_page(self):
        """In our own view, on both systems."""
        path = self.path("marks.html")
        with open(path, "w", encoding="utf-8") as file:
            file.write("<!doctype html><meta charset=utf-8><p>a" + "\u0301" * MANY + END)
        program = self.reader()
        program.variables = {"NORVASET_OWN_VIEW": "1"}
        program.start(path).wait_for_book(path)
        program.key("Next", "Down", "ctrl+End", "Prior", "ctrl+Home")
        dialog = Dialog(program, "Find", "ctrl+f")
        dialog.type("needle")
        dialog.close()
        self.assertEqual(copied(program), "needle")
        program.finish_keys()
        self.assertLess(self.peak(program), MOST_MEMORY)
        program.close()

    def test_tabs(self):
        self.read(books.write_book(self.path("tabs.txt"), ["\t" * 10 * MANY + END]))

    def test_runs(self):
        runs = "".join(rf"\f{i % 50}\fs{16 + i % 30} x" for i in range(MANY // 2))
        fonts = "".join(rf"{{\f{i} Font{i};}}" for i in range(50))
        path = self.path("runs.rtf")
        with open(path, "w", encoding="ascii") as file:
            file.write(r"{\rtf1\ansi{\fonttbl" + fonts + "}" + runs + END + "}")
        self.read(path)


if __name__ == "__main__":
    main()
