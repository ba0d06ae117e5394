"""The Help menu: topics and their search, About, the web, and a message's Help button."""
import os
import unittest.mock

from harness import books
from harness.silent_proxy import SilentProxy
from harness.story import Story, main
from harness.wait import wait_for
from harness.wine import ON_WINE
from harness.words import can_read, places_of, squeezed, words_shown

HELP = "Norvaset Help"
LIST_WIDTH = 320  # pixels, with the splitter
NOT_ACCESSIBLE = ("Remote resource is not accessible now.", "Please try later.")


class Help(Story):
    def setUp(self):
        self.book = books.write_book(self.path("lanterns.txt"), books.lines("latin", 500))
        self.program = self.reader()

    def start(self):
        self.program.start(self.book)
        self.program.wait_for_book(self.book)

    def wait_for_help(self):
        window = wait_for(lambda: self.program.window_named(HELP), "the help window")
        wait_for(lambda: self.program.is_active(window), "the help window to have the keyboard")
        return window

    def wait_for_words(self, window, *words):
        if not can_read():
            return  # the title of the window still shows which it is

        def shows_them():
            text = words_shown(self.program.screen, window)
            return all(squeezed(word) in text for word in words)
        wait_for(shows_them, f"the words {words}")

    def wait_for_dialog(self, title):
        window = wait_for(lambda: self.program.window_named(title), f"the dialog {title}")
        wait_for(lambda: self.program.is_active(window), "the dialog to have the keyboard")
        return window

    def close_dialog(self, window, key="Return"):
        self.program.key(key)
        wait_for(lambda: not self.program.window_exists(window), "the dialog to close")
        wait_for(self.program.is_active, "the reader to have the keyboard again")

    def choose(self, letter):
        self.program.open_menu("h")
        self.program.key(letter)

    def test_topics_and_search(self):
        self.start()
        self.program.key("F1")
        window = self.wait_for_help()
        self.wait_for_words(window, "Welcome", "Three things to know")
        self.program.screen.xdotool("type", "--delay", 0, "stick")
        self.wait_for_words(window, "What is kept, and where", "folder on the stick and start it")
        self.program.key("ctrl+d", "F5", "Next", "ctrl+plus")  # the reader's keys, not the help's
        self.close_dialog(window, "Escape")
        self.program.close()
        record = self.book_record(self.program, self.book)
        self.assertEqual((record["Marks"], record["LastPos"]), ("", 0))

    @unittest.skipUnless(can_read(), "the words cannot be read")
    def test_a_topic_that_is_named_is_a_link(self):
        self.start()
        self.program.key("F1")
        window = self.wait_for_help()
        self.wait_for_words(window, "Three things to know")

        def link():
            """The last word of the title, after which its sentence ends; in the list it is further left."""
            found = places_of(self.program.screen, window, "wrong")
            return max((place for place in found if place[0] > LIST_WIDTH), default=None)
        x, y = wait_for(link, "the link")
        left, top, *_ = self.program.rectangle(window)
        self.program.click(left + x, top + y)
        self.wait_for_words(window, "Empty boxes")
        self.close_dialog(window, "Escape")
        self.program.close()

    def test_a_second_f1_brings_it_to_the_front(self):
        self.start()
        self.program.key("F1")
        window = self.wait_for_help()
        self.program.activate()
        self.program.press("Next", 3)  # reading goes on beside it
        self.program.key("F1")
        if ON_WINE:  # it gives the help the keyboard, and the screen does not hear of it
            self.close_dialog(window, "Escape")
        else:
            self.assertEqual(self.wait_for_help(), window)
            self.program.activate()
        self.program.close()  # and the help with it
        self.assertGreater(self.book_record(self.program, self.book)["LastPos"], 0)

    def test_a_menu_opened_while_it_comes_up(self):
        """The help gets the keyboard, and the menu goes."""
        self.start()
        for _ in range(5):
            self.program.key("F1", "alt+f")
            window = self.wait_for_help()
            wait_for(lambda: not self.program.popups(), "the menu to close")
            self.program.wait_until_idle()  # the menu's grab takes the keys until a moment after it
            self.close_dialog(window, "Escape")
        self.program.close()

    def test_the_help_button_of_a_message(self):
        self.start()
        self.program.close()
        self.program.process = self.program.launch(self.path("what?.txt"))
        box = self.program.wait_for_message()
        wait_for(lambda: self.program.is_active(box), "the message box to have the keyboard")
        self.program.key(*["F1"] if ON_WINE else ["Tab", "space"])  # Wine's button does nothing
        window = self.wait_for_help()
        self.wait_for_words(window, "There are four ways")
        self.assertTrue(self.program.message_box())
        self.program.key("Escape")
        wait_for(lambda: not self.program.window_exists(window), "the help to close")
        self.program.answer_message("Escape")
        self.program.wait_for_window()
        self.program.close()

    def test_without_the_help_file(self):
        os.remove(os.path.join(self.program.folder, "Norvaset.hlp"))
        self.start()
        self.program.key("F1")
        self.wait_for_words(self.program.wait_for_message(), "The help file is missing")
        self.program.answer_message()
        self.program.close()

    def test_about(self):
        self.start()
        self.choose("a")
        box = self.wait_for_dialog("About Norvaset")
        self.wait_for_words(box, "Version 1.00", "norvaset.example")
        self.close_dialog(box)
        self.program.close()

    def test_an_update_check_without_the_web_site(self):
        """The site's name is one of those that never resolve."""
        self.start()
        self.choose("u")
        box = self.wait_for_dialog("Norvaset")
        self.wait_for_words(box, *NOT_ACCESSIBLE)
        self.close_dialog(box)
        self.assertEqual(self.program.opened(), [])
        self.program.close()

    @unittest.skipIf(ON_WINE, "Windows does not take its proxy from the environment")
    def test_closing_while_an_update_check_runs(self):
        with SilentProxy() as proxy:
            with unittest.mock.patch.dict(self.screen.environment, https_proxy=proxy.address()):
                self.start()
            self.choose("u")
            head = wait_for(lambda: proxy.heads, "the check to begin")[0]
            self.assertTrue(head.startswith(b"CONNECT norvaset.example:443 "))
            self.assertNotIn(b"authorization", head.lower())
            self.program.key("Next", "Next", "F1")  # pages turn meanwhile, and no command starts
            self.program.close()
        self.assertGreater(self.book_record(self.program, self.book)["LastPos"], 0)

    def test_web_page_and_mail(self):
        self.start()
        self.choose("p")
        self.choose("b")
        wait_for(lambda: len(self.program.opened()) == 2, "both addresses")
        self.assertEqual(sorted(self.program.opened()), [
            "https://norvaset.example/Products/Norvaset/",
            "mailto:feedback@norvaset.example?subject=Norvaset%20Bug%20Report"])
        self.program.close()


if __name__ == "__main__":
    main()
