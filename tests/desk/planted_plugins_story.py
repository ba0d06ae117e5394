"""Plug-ins and settings of Qt planted beside the program, as in a folder of downloads: none is used."""
import glob
import os
import shutil

from harness import books
from harness.story import Story, main

PLANTED = os.environ.get("PLANTED_PLUGIN", "")
KINDS = ("imageformats", "platforms", "platformthemes", "platforminputcontexts", "styles",
         "iconengines", "generic", "accessiblebridge")


class PlantedPlugins(Story):
    def setUp(self):
        self.program = self.reader()
        self.book = books.write_rtf_book(self.path("quay.rtf"), books.lines("latin", 100))

    def plant(self, folder):
        for kind in KINDS:
            os.makedirs(os.path.join(folder, kind))
            shutil.copy(PLANTED, os.path.join(folder, kind))

    def loaded(self):
        return glob.glob(self.folder + "/**/*.loaded", recursive=True)

    def look_into_the_book(self):
        """It has pictures; the About box has one, too."""
        self.program.start(self.book)
        self.program.wait_for_book(self.book)
        self.program.show_about()
        self.program.close()

    def test_no_plugin_is_loaded(self):
        self.plant(self.program.folder)
        self.look_into_the_book()
        self.assertEqual(self.loaded(), [])

    def test_settings_lead_nowhere(self):
        planted = self.path("planted")
        self.plant(planted)
        for name in ("qt.conf", "qt6.conf"):
            with open(os.path.join(self.program.folder, name), "w", encoding="ascii") as file:
                file.write(f"[Paths]\nPrefix={planted}\nPlugins={planted}\n")
        self.look_into_the_book()
        self.assertEqual(self.loaded(), [])

    def test_the_mark_of_one_that_is_loaded(self):
        """From a folder that the user has named: else the other stories would see nothing, ever."""
        planted = self.path("planted")
        self.plant(planted)
        self.program.variables["QT_PLUGIN_PATH"] = planted
        self.look_into_the_book()
        self.assertNotEqual(self.loaded(), [])


if __name__ == "__main__":
    main()
