"""A message at the start: over the window, with its whole title and text."""
import os
import unittest

from harness.menu_picture import text_rows
from harness.picture import grab
from harness.story import Story, main
from harness.wait import wait_for
from harness.wine import ON_WINE

FRAME = 25  # pixels above a window that hold its title bar
ICON, BUTTONS = 60, 38  # pixels at the left of a message, and at its lower edge
TWO_LINES = 38  # pixels, at most
BESIDE_TITLE = 70  # pixels at the right of it: the window manager's buttons


class StartMessage(Story):
    def message_of(self, path):
        """The message's window, with the main window on the screen below it."""
        program = self.reader("program" + path.replace("/", "-"))
        program.process = program.launch(path)
        box = program.wait_for_message()
        program.window = program.main_window()
        self.assertTrue(program.window, "the message is alone")
        wait_for(lambda: program.is_active(box), "the message to have the keyboard")
        return program, box

    def title_bar(self, program, box):
        left, top, width, _ = program.rectangle(box)
        screen = grab(self.screen, "root")
        return screen.crop(left + FRAME, top - FRAME + 5, left + width - BESIDE_TITLE, top - 6)

    def test_comes_over_the_window_with_its_whole_title(self):
        """The title is there as it is over a message that has all the room."""
        wide, box = self.message_of("/" + "long-" * 20 + "missing")
        title = _ink(self.title_bar(wide, box))
        wide.answer_message()
        wide.close()
        narrow, box = self.message_of("/m")
        if not ON_WINE:  # whose message boxes leave no room for titles
            bar = self.title_bar(narrow, box)
            self.assertTrue(any(bar.crop(x, 0, x + title.width, bar.height).looks_like(title)
                                for x in range(bar.width - title.width + 1)), "a cut title")
        narrow.answer_message()
        narrow.close()

    @unittest.skipIf(ON_WINE, "there the system draws the box")
    def test_breaks_its_lines(self):
        """A path and some 120 letters, for which the box is too narrow."""
        program = self.reader()
        os.mkdir(program.data_path)
        program.process = program.launch()
        box = program.wait_for_message()

        def shows_all():
            picture = grab(self.screen, box)
            rows = picture and text_rows(picture.crop(ICON, 0, picture.width, picture.height - BUTTONS))
            return rows and rows[-1][1] - rows[0][0] > TWO_LINES
        wait_for(shows_all, "three lines")
        program.answer_message()
        program.wait_for_window()
        program.close()

    def test_the_program_can_be_ended_by_its_system_meanwhile(self):
        program, _ = self.message_of("/m")
        program.terminate()


def _ink(bar):
    """The columns of the bar that the letters of the title stand in."""
    columns = [bar.crop(x, 0, x + 1, bar.height).pixels for x in range(bar.width)]
    inked = [x for x, column in enumerate(columns) if column != columns[0]]
    return bar.crop(inked[0], 0, inked[-1] + 1, bar.height)


if __name__ == "__main__":
    main()
