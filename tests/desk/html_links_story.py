"""Links that lead out of a page: to other programs, and to files beside the book."""
import os

from harness.dialog import Dialog
from harness.html_story import HtmlStory, write_page
from harness.story import main
from harness.wait import wait_for

BODY = """<p><a href="mailto:miller@quay.example?subject=Lanterns&amp;attach=/etc/passwd">write</a></p>
<p><a href="tel:+4912345">call</a></p>
<p><a href="song.mp3">the song</a></p>
<p><a href="map.png">the map</a></p>
<p><a href="gone.png">the other map</a></p>
<p><a href="https://quay.example/it's">look</a></p>
"""


class HtmlLinks(HtmlStory):
    def setUp(self):
        os.mkdir(self.path("book"))
        self.song = self.write("song.mp3", b"ID3\x04 la la")
        self.write("map.png", b"#!/bin/sh\ntouch /tmp/ran\n")
        book = write_page(self.path("book/lanterns.htm"), BODY)
        self.program = self.open(book, "Lanterns")

    def write(self, name, text):
        path = self.path("book/" + name)
        with open(path, "wb") as file:
            file.write(text)
        os.chmod(path, 0o755)
        return path

    def follow_next(self):
        """A dialog has just gone, or another program come: the keyboard may not be back at once."""
        self.program.activate()
        self.program.finish_keys()
        self.program.key("Tab", "Return")

    def answer(self, *keys):
        """The question whether to go on; No is the default."""
        dialog = Dialog(self.program, "Norvaset")
        dialog.key(*keys[:-1])
        dialog.close(keys[-1])

    def wait_for_opened(self, *addresses):
        wait_for(lambda: self.program.opened() == list(addresses), f"{addresses} to be opened")

    def test_out_of_the_page(self):
        mail = "mailto:miller@quay.example?subject=Lanterns"
        self.follow_next()
        self.wait_for_opened(mail)
        self.follow_next()
        self.answer("Return")
        self.program.key("Return")  # the same link again
        self.answer("Left", "Return")
        self.wait_for_opened(mail, "tel:+4912345")
        self.follow_next()
        self.answer("Left", "Return")
        self.wait_for_opened(mail, "tel:+4912345", self.song)
        for _ in range(2):  # a script by the name of a picture, and nothing at all
            self.follow_next()
            self.program.answer_message()
        self.follow_next()
        self.wait_for_opened(mail, "tel:+4912345", self.song, "https://quay.example/it%27s")
        self.program.close()


if __name__ == "__main__":
    main()
