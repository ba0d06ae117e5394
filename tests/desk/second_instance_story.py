"""Only one reader at a time works with a data file."""
import os
import subprocess
import unittest

from harness import books
from harness.story import Story, main
from harness.wine import ON_WINE, shown_path

SOON = 5  # seconds; an idle machine needs a fraction of one


class SecondInstance(Story):
    def setUp(self):
        self.first, self.second = (
            books.write_book(self.path(name), books.lines("latin", 2000))
            for name in ("lanterns.txt", "quay.txt"))
        self.running = self.reader().start(self.first)
        self.running.wait_for_book(self.first)
        self.running.press("Next", 3)

    def assert_ends_at_once(self, *arguments):
        before = self.running.data_bytes(), os.stat(self.running.data_path)
        process = self.running.launch(*arguments)
        try:
            self.assertEqual(process.wait(SOON), 0)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()
            raise
        now = os.stat(self.running.data_path)
        self.assertEqual(self.running.data_bytes(), before[0])
        self.assertEqual((now.st_mtime_ns, now.st_ino), (before[1].st_mtime_ns, before[1].st_ino))

    def test_without_and_with_a_book(self):
        self.assert_ends_at_once()
        self.assert_ends_at_once(self.second)
        self.assert_ends_at_once(self.path("missing.txt"))
        self.assertEqual(self.running.title(), "Norvaset [Default] - " + shown_path(self.first))
        self.running.close()
        self.assertEqual(self.running.data().paths(), [self.first])

    @unittest.skipIf(ON_WINE, "Wine makes another program of a link")
    def test_by_way_of_a_link(self):
        link = self.path("link")
        os.symlink(self.running.program, link)
        self.running.program = link
        self.assert_ends_at_once(self.second)
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
        self.assert_ends_at_once(self.second)
        self.running.close()
        self.assertEqual(self.running.data().paths(), [self.first])

    def test_a_killed_reader_locks_nobody_out(self):
        self.running.kill()
        self.running.start()
        self.running.wait_for_book(self.first)
        self.running.close()


if __name__ == "__main__":
    main()
