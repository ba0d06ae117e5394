"""A first run: no data file yet."""
from harness.story import Story, main
from harness.wait import wait_for


class FirstRun(Story):
    def test_window_data_file_and_menu(self):
        reader = self.reader().start()
        self.assertEqual(reader.title(), "Norvaset [Default]")
        data = reader.data()
        self.assertIn("Scheme", data.sections)
        self.assertEqual(data.value("mProfileList", "0"), "Default")
        self.assertEqual(data.records(), [])

        reader.wait_until_settled()
        reader.wait_until_idle()  # all of the window is painted
        before = reader.picture()
        menu = reader.open_menu("f")
        rectangle = reader.rectangle()
        place = self.screen.output("xwininfo", "-id", str(menu))
        self.assertIn("Map State: IsViewable", place)
        self.assertFalse(reader.picture().looks_like(before), "the menu's name is marked")
        self.assertEqual(reader.rectangle(), rectangle)
        reader.close_menu()
        wait_for(lambda: reader.picture().looks_like(before), "the window as it was")
        reader.close()
        self.assertEqual(reader.data().records(), [])

    def test_exit_by_the_menu(self):
        reader = self.reader().start()
        reader.open_menu("f")
        reader.key("x")
        reader.wait_for_end()
        self.assertEqual(reader.data().value("Default", "State"), "0")


if __name__ == "__main__":
    main()
