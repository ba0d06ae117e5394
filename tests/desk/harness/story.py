"""The base class of the stories: a screen for each file, a folder and readers for each test."""
import contextlib
import os
import shutil
import sys
import tempfile
import unittest

from harness.picture import keep
from harness.reader import Reader
from harness.screen import OPENBOX, Screen, missing_tools
from harness.wine import ON_WINE, PROGRAM, shown_path

REAL_BOOKS = os.environ.get("REAL_BOOKS", "")
FAILURES = os.environ.get("DESK_FAILURES", tempfile.gettempdir())  # where pictures of them are kept
SKIPPED = 77  # exit code: ctest counts the test as skipped


class Story(unittest.TestCase):
    window_manager = OPENBOX
    kind_of_reader = Reader

    @classmethod
    def setUpClass(cls):
        cls.screen_folder = _open_folder()
        cls.screen = cls.make_screen(cls.screen_folder)

    @classmethod
    def make_screen(cls, folder):
        return Screen(folder, cls.window_manager)

    @classmethod
    def tearDownClass(cls):
        cls.screen.stop()
        shutil.rmtree(cls.screen_folder, ignore_errors=True)

    def run(self, result=None):
        self.folder, self.readers, self.picture_kept = _open_folder(), [], False
        failures = len(result.failures) + len(result.errors)
        super().run(result)
        if len(result.failures) + len(result.errors) > failures:
            self._keep_picture()
        for reader in self.readers:
            reader.clean_up()
        shutil.rmtree(self.folder, ignore_errors=True)

    @contextlib.contextmanager
    def subTest(self, **parameters):
        """Takes the screenshot of a failure before the next subtest changes the screen."""
        with super().subTest(**parameters):
            try:
                yield
            except unittest.SkipTest:
                raise
            except Exception:
                self._keep_picture()
                raise

    def _keep_picture(self):
        if self.picture_kept:
            return  # the first failure is the cause
        self.picture_kept = True
        os.makedirs(FAILURES, exist_ok=True)
        path = os.path.join(FAILURES, self.id().removeprefix("__main__.") + ".png")
        self.take_picture(path)
        print("the screen of this failure:", path, file=sys.stderr)

    def take_picture(self, path):
        keep(self.screen, "root", path)

    def reader(self, name="program", **options):
        folder = os.path.join(self.folder, name)
        os.mkdir(folder)
        self.readers.append(self.kind_of_reader(self.screen, folder, **options))
        return self.readers[-1]

    def path(self, name):
        return os.path.join(self.folder, name)

    def real_book(self, name):
        path = os.path.join(REAL_BOOKS, name)
        if not os.path.isfile(path):
            self.skipTest(f"REAL_BOOKS does not hold {name}")
        return os.path.realpath(path)

    def book_record(self, reader, path):
        """The record of the book shown last, which must be this one."""
        record = reader.data().records()[0]
        self.assertEqual(record["Path"], shown_path(path).replace("=", "*"))
        return record


def _open_folder():
    """A new folder that another user may look into; its name holds nothing unusual."""
    folder = tempfile.mkdtemp(prefix="desk-", dir="/tmp")
    os.chmod(folder, 0o755)
    return os.path.realpath(folder)


def main(*tools):
    """`tools`: programs that these stories need besides the usual ones."""
    missing = missing_tools([*tools, *(["wine"] if ON_WINE else [])])
    if missing or not os.access(PROGRAM, os.X_OK):
        print("skipped; not found:", ", ".join(missing) or "the program, NORVASET_PROGRAM")
        sys.exit(SKIPPED)
    unittest.main(verbosity=2)
