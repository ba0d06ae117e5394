"""Only one reader at a time works with a data file; a later start hands its book over to it."""
import os
import signal
import subprocess
import unittest

from harness import books
from harness.dialog import Dialog
from harness.story import Story, main
from harness.wait import wait_for
from harness.wine import ON_WINE, shown_path

SOON = 15  # seconds; an idle machine needs a fraction of one


class SecondInstance(Story):
    def setUp(self):
        self.first, self.second = (
            books.write_book(self.path(name), books.lines("latin", 2000))
            for name in ("lanterns.txt", "quay.txt"))
        self.running = self.reader().start(self.first)
        self.running.wait_for_book(self.first)
        self.running.press("Next", 3)

    def assert_ends(self, *arguments):
        process = self.running.launch(*arguments)
        try:
            self.assertEqual(process.wait(SOON), 0)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()
            raise

    def assert_changes_nothing(self, *arguments):
        before = self.running.data_bytes(), os.stat(self.running.data_path)
        self.assert_ends(*arguments)
        now = os.stat(self.running.data_path)
        self.assertEqual(self.running.data_bytes(), before[0])
        self.assertEqual((now.st_mtime_ns, now.st_ino), (before[1].st_mtime_ns, before[1].st_ino))

    def test_without_a_book_nothing_changes(self):
        self.assert_changes_nothing()
        self.assert_changes_nothing(self.first)  # it is on the screen
        self.assertEqual(self.running.title(), "Norvaset [Default] - " + shown_path(self.first))
        self.running.close()
        self.assertEqual(self.running.data().paths(), [self.first])

    def test_the_book_opens_in_the_first(self):
        self.assert_ends(self.second)
        self.running.wait_for_book(self.second)
        self.running.press("Next", 2)
        # By a path that begins where the second one stands.
        books.write_book(os.path.join(self.running.home, "a tide=table.txt"),
                         books.lines("latin", 200))
        self.assert_ends("a tide=table.txt")
        third = os.path.join(self.running.home, "a tide=table.txt")
        self.running.wait_for_book(third)
        self.running.close()
        self.assertEqual(self.running.data().paths(),
                         [third, self.second, self.first])

    def test_a_book_that_is_missing(self):
        """The first one says so, as of a file that is dropped and gone."""
        self.assert_ends(self.path("missing.txt"))
        self.running.answer_message()
        self.assertEqual(self.running.title(), "Norvaset [Default] - " + shown_path(self.first))
        self.running.close()
        self.assertEqual(self.running.data().paths(), [self.first])

    def test_while_a_dialog_is_open(self):
        """Its user is at something: the book waits until that is done."""
        dialog = Dialog(self.running, "Open File", "ctrl+o")
        self.assert_ends(self.second)
        self.assertTrue(self.running.window_exists(dialog.window))
        self.assertEqual(self.running.title(), "Norvaset [Default] - " + shown_path(self.first))
        wait_for(lambda: self.running.is_active(dialog.window), "the dialog to have the keyboard")
        dialog.close("Escape")
        self.running.wait_for_book(self.second)
        self.running.close()

    def test_while_a_menu_is_open(self):
        """The menu has the books in the order of before: it closes."""
        self.running.open_menu("f")
        self.assert_ends(self.second)
        self.running.wait_for_book(self.second)
        wait_for(lambda: not self.running.popups(), "the menu to close")
        self.running.close()

    def test_out_of_an_icon(self):
        self.running.minimise()
        self.assert_ends(self.second)
        wait_for(lambda: self.running.window in self.running.windows(), "the window")
        self.running.wait_for_book(self.second)
        self.running.close()

    @unittest.skipIf(ON_WINE, "Wine asks no window manager for the front")
    def test_comes_to_the_front(self):
        """With what a desktop gives to the programs that it starts, and without."""
        other = self.reader("other").start(self.second)
        now = self.time_of_the_server()
        for variables in ({}, {"DESKTOP_STARTUP_ID": f"files-1-desk_TIME{now}"},
                          {"XDG_ACTIVATION_TOKEN": "of another desktop"}):
            with self.subTest(**variables):
                other.activate()
                self.running.variables = variables
                self.assert_ends()
                wait_for(self.running.is_active, "the first one to have the keyboard")
        other.close()
        self.running.close()

    def time_of_the_server(self):
        """Of an event just now, in the server's milliseconds."""
        self.running.key("Next")
        return wait_for(lambda: self.running.property("_NET_WM_USER_TIME").rpartition("= ")[2].strip(),
                        "a time")

    def test_the_first_one_hangs(self):
        first = self.running.process
        first.send_signal(signal.SIGSTOP)
        try:
            self.running.process = self.running.launch(self.second)
            self.running.answer_message()
            self.running.wait_for_end()
        finally:
            self.running.process = first
            first.send_signal(signal.SIGCONT)
        # What was given up does not happen later: its user was told so.
        self.running.activate()  # the keyboard comes back from the other one's message a moment later
        self.running.finish_keys()
        self.assertEqual(self.running.title(), "Norvaset [Default] - " + shown_path(self.first))
        self.assert_ends(self.second)
        self.running.wait_for_book(self.second)
        self.running.close()

    @unittest.skipIf(ON_WINE, "Wine makes another program of a link")
    def test_by_way_of_a_link(self):
        link = self.path("link")
        os.symlink(self.running.program, link)
        self.running.program = link
        self.assert_ends(self.second)
        self.running.wait_for_book(self.second)
        self.running.close()

    def test_another_copy_is_another_reader(self):
        other = self.reader("other").start(self.second)
        other.wait_for_book(self.second)
        self.assertTrue(self.running.is_alive())
        other.close()
        self.running.close()
        self.assertEqual(other.data().paths(), [self.second])
        self.assertEqual(self.running.data().paths(), [self.first])

    def test_in_another_session(self):
        """Of the same user: at another screen, or by a remote login."""
        runtime = self.path("other session")
        os.mkdir(runtime, 0o700)
        self.running.variables["XDG_RUNTIME_DIR"] = runtime
        self.assert_ends(self.second)
        self.running.wait_for_book(self.second)
        self.running.close()
        self.assertEqual(self.running.data().paths(), [self.second, self.first])

    def test_nothing_stays_beside_the_data_file(self):
        self.running.close()
        self.assertEqual([name for name in os.listdir(self.running.folder)
                          if name.startswith("Norvaset.dat")], ["Norvaset.dat"])

    def test_a_killed_reader_locks_nobody_out(self):
        self.running.kill()
        self.running.start()
        self.running.wait_for_book(self.first)
        self.assert_ends(self.second)
        self.running.wait_for_book(self.second)
        self.running.close()


if __name__ == "__main__":
    main()
