"""The data file while other programs and other people use it, too: nothing of it is lost."""
import contextlib
import os
import stat
import unittest

from harness import books
from harness.story import Story, main
from harness.wait import wait_for
from harness.wine import ON_WINE, shown_path

ANNA, BERT = 65534, 65533
HELPER = os.environ.get("WINDOWS_HELPER", "")


@unittest.skipIf(os.getuid() != 0, "only root can run the program as another user")
class DataFileOfMany(Story):
    def setUp(self):
        self.first, self.second = (books.write_book(self.path(name), books.lines("latin", 2000))
                                   for name in ("lanterns.txt", "quay.txt"))

    def read(self, reader, book, pages=3):
        reader.start(book)
        reader.wait_for_book(book)
        reader.press("Next", pages)
        reader.close()

    def place_of(self, reader, book):
        return next(record["LastPos"] for record in reader.data().records()
                    if record["Path"] == shown_path(book))

    @contextlib.contextmanager
    def unreadable(self, reader):
        """By its mode; on Windows by a program that shares it with nobody, as backups do."""
        if not ON_WINE:
            os.chmod(reader.data_path, 0)
            yield
            os.chmod(reader.data_path, 0o600)
            return
        said = self.path("said")
        reader.variables |= {"NORVASET_HELPER_DOES": "keeps",
                             "NORVASET_HELPER_OUTPUT": shown_path(said)}
        holder = reader.launch(reader.data_path, program=HELPER)
        try:
            wait_for(lambda: os.path.exists(said), "the file to be held")
            with open(said, encoding="utf-16-le") as file:
                self.assertEqual(file.read(), "yes")
            yield
        finally:
            holder.kill()
            holder.wait()

    def test_that_cannot_be_read_for_a_while(self):
        reader = self.reader(as_nobody=not ON_WINE)
        self.read(reader, self.first)
        before, place = reader.data_bytes(), self.place_of(reader, self.first)
        self.assertGreater(place, 0)
        with self.unreadable(reader):
            reader.start_with_message(self.second)
            reader.wait_for_book(self.second)
            reader.press("Next", 2)
            self.assertEqual(reader.data_bytes(), before)
        wait_for(lambda: len(reader.data().records()) == 2, "both books in the list")
        self.assertEqual(self.place_of(reader, self.first), place)
        reader.wait_for_book(self.second)
        reader.close()
        self.assertEqual(reader.data().paths(), [self.second, self.first])
        self.assertEqual(self.place_of(reader, self.first), place)
        self.assertGreater(self.place_of(reader, self.second), 0)

    def test_that_cannot_be_read_all_the_time(self):
        reader = self.reader(as_nobody=not ON_WINE)
        self.read(reader, self.first)
        before = reader.data_bytes()
        with self.unreadable(reader):
            reader.start_with_message(self.second)
            reader.wait_for_book(self.second)
            reader.close()
        self.assertEqual(reader.data_bytes(), before)
        reader.start()
        reader.wait_for_book(self.first)
        reader.close()

    @unittest.skipIf(ON_WINE, "a folder's mode means nothing to Wine")
    def test_two_people_in_a_folder_for_all(self):
        reader = self.reader()
        os.chmod(reader.folder, 0o777)
        for user, book in ((ANNA, self.first), (BERT, self.second)):
            reader.become(user)
            self.read(reader, book)
        self.assertEqual(reader.data().paths(), [self.second, self.first])
        self.assertEqual(stat.S_IMODE(os.stat(reader.data_path).st_mode), 0o666)

        reader.become(ANNA)
        reader.start()
        reader.wait_for_book(self.second)
        reader.close()

    @unittest.skipIf(ON_WINE, "a folder's mode means nothing to Wine")
    def test_a_file_that_is_one_persons_own(self):
        reader = self.reader()
        os.chmod(reader.folder, 0o777)
        reader.become(ANNA)
        self.read(reader, self.first)
        os.chmod(reader.data_path, 0o600)
        before = reader.data_bytes()

        reader.become(BERT)
        reader.start_with_message(self.second)
        reader.wait_for_book(self.second)
        reader.press("Next", 3)
        reader.close()
        self.assertEqual(reader.data_bytes(), before)
        reader.start()  # no second message
        reader.wait_for_book(self.second)
        reader.close()
        self.assertEqual(reader.data_bytes(), before)

    @unittest.skipIf(ON_WINE, "a folder's mode means nothing to Wine")
    def test_two_people_at_the_same_time(self):
        reader = self.reader()
        os.chmod(reader.folder, 0o777)
        reader.become(ANNA)
        reader.start(self.first)
        reader.wait_for_book(self.first)
        annas = reader.process
        reader.become(BERT)
        reader.process = reader.launch(self.second)
        reader.answer_message()
        reader.wait_for_end()
        reader.process = annas
        reader.close()
        self.assertEqual(reader.data().paths(), [self.first])


class OneBadByte(Story):
    def test_in_a_comment(self):
        book = books.write_book(self.path("Мёртвые души.txt"), books.lines("cyrillic", 300))
        reader = self.reader().start(book)
        reader.wait_for_book(book)
        reader.close()
        with open(reader.data_path, "ab") as file:
            file.write(b"; by h\xe4nd\r\n")
        reader.start()
        reader.wait_for_book(book)
        reader.press("Next", 2)
        reader.close()
        data = reader.data_bytes()
        self.assertIn(b"; by h\xe4nd\r\n", data)
        self.assertIn(shown_path(book).encode() + b"=", data)


if __name__ == "__main__":
    main()
