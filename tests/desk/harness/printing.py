"""Stories that print into a PDF file by Qt's own dialog."""
import os
import subprocess

from harness.wait import wait_for

FROM = 38, 139  # pixels from the dialog's left and lower edges to "Pages from"
MAX_STEPS = 20


def is_whole(pdf):
    """The dialog makes a file of its own for a moment, to see that it can be written."""
    try:
        with open(pdf, "rb") as file:
            return file.read().rstrip().endswith(b"%%EOF")
    except FileNotFoundError:
        return False


class Printing:
    def ask(self):
        self.program.key("ctrl+p")
        self.wait_for_dialog()

    def wait_for_dialog(self):
        self.dialog = wait_for(lambda: self.program.window_named("Print"), "the print dialog")
        wait_for(lambda: self.program.is_active(self.dialog), "the dialog to have the keyboard")

    def choose_pages(self, first, last):
        height = self.program.rectangle(self.dialog)[3]
        self.program.key("alt+o")  # more of the dialog
        wait_for(lambda: self.program.rectangle(self.dialog)[3] > height, "the options")
        left, top, _, height = self.settled_rectangle()
        self.program.click(left + FROM[0], top + height - FROM[1])
        for page in (first, last):
            self.program.key("Tab")
            self.screen.xdotool("type", "--delay", 0, str(page))

    def settled_rectangle(self):
        """The dialog grows in steps, between which nobody is busy."""
        before = None
        for _ in range(MAX_STEPS):
            self.program.wait_until_idle()
            rectangle = self.program.rectangle(self.dialog)
            if rectangle == before:
                return rectangle
            before = rectangle
        raise AssertionError(f"the dialog is still growing: {before}")

    def print(self):
        self.program.key("Return")
        wait_for(self.is_printed, "the whole file")
        self.wait_until_alone()

    def pdf(self):
        """The file that the dialog proposes."""
        found = [name for name in os.listdir(self.program.home) if name.endswith(".pdf")]
        return os.path.join(self.program.home, found[0]) if found else None

    def is_printed(self):
        """Between the dialog and word of the progress no other window is open."""
        return is_whole(self.pdf() or "")

    def wait_until_alone(self):
        wait_for(lambda: self.program.windows() == [self.program.window], "all dialogs to close")
        self.program.activate()

    def start_printing(self):
        self.program.key("Return")
        progress = wait_for(lambda: next((w for w in self.program.windows("--name", "^Print$")
                                          if w != self.dialog), None), "word that it prints")
        wait_for(lambda: self.program.is_active(progress), "it to have the keyboard")

    def cancel_printing(self):
        """In the dialog, and while it prints."""
        self.ask()
        self.program.key("Escape")
        self.wait_until_alone()
        self.assertIsNone(self.pdf())
        self.ask()
        self.start_printing()
        self.program.key("Escape")
        self.wait_until_alone()
        self.assertIsNone(self.pdf())

    def pages(self):
        done = subprocess.run(["pdftotext", "-layout", self.pdf(), "-"], capture_output=True,
                              check=True)
        pages = done.stdout.decode().split("\f")[:-1]
        return [[" ".join(line.split()) for line in page.splitlines() if line.strip()]
                for page in pages]
