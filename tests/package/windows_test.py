"""The Windows packages under Wine, in a Windows of their own: put there, used, and removed again."""
import glob
import os
import subprocess
import zipfile

from harness.wait import wait_for
from harness.wine import TEMPLATE, end_prefix, make_prefix, shown_path, wine_environment
from package_test import PackageTest, main, package, text_of

WINE = os.path.join(os.path.dirname(__file__), "../../scripts/wine")
UNINSTALL = r"Software\Microsoft\Windows\CurrentVersion\Uninstall\Norvaset"
IN_USE = 32  # ERROR_SHARING_VIOLATION


class WindowsTest(PackageTest):
    def setUp(self):
        super().setUp()
        if not os.path.exists(os.path.join(TEMPLATE, "ready")):
            subprocess.run([WINE, "cmd", "/c", "exit"], env=os.environ | {"WINEPREFIX": TEMPLATE}, check=True)
        self.prefix = os.path.join(self.folder, "wine")
        make_prefix(self.prefix, 96)
        self.variables = self.screen.environment | wine_environment(self.prefix)
        self.addCleanup(end_prefix, self.prefix, self.screen.environment)
        self.drive = os.path.join(self.prefix, "drive_c")

    def wine(self, *command):
        """The program's answer and its exit code."""
        done = subprocess.run(["wine", *command], env=self.variables, stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=False, timeout=60)
        return done.stdout.decode(errors="replace"), done.returncode

    def registered(self, key):
        """The names and values of a registry key, "(Default)" for the one without a name."""
        lines = self.wine("reg", "query", key)[0].splitlines()
        return {part[0]: part[2] for part in (line[4:].split("    ", 2) for line in lines) if len(part) == 3}

    def wait_for_wine(self):
        """Until no program runs; then Wine has written the registry down."""
        subprocess.run(["wineserver", "--wait"], env=self.variables, timeout=60, check=True)

    def traces(self):
        """What the registry still has of the program."""
        self.wait_for_wine()
        return [line for name in ("system.reg", "user.reg")
                for line in text_of(os.path.join(self.prefix, name)).splitlines() if "norvaset" in line.lower()]

    def read(self, program):
        process = self.start(["wine", program, shown_path(self.book)], wine_environment(self.prefix))
        wait_for(lambda: "Book.txt" in self.title(), "the book")
        self.look_into_help()
        return process

    def assert_holds(self, folder, *names):
        self.assertEqual(sorted(os.listdir(folder)), sorted(names))

    def assert_tells_of_book(self, data_file):
        self.assertIn(shown_path(self.book), text_of(data_file))


class Setup(WindowsTest):
    def setup(self, *switches):
        return self.wine(package("Norvaset_Setup.exe"), "/S", *switches)[1]

    def uninstall(self, folder, *switches):
        """As from the list of programs; it goes on by itself, from a copy."""
        self.wine(os.path.join(folder, "Uninstall.exe"), "/S", *switches)
        self.wait_for_wine()

    def test_for_one_user(self):
        self.assertEqual(self.setup(), 0)
        folder = self.programs_of_user()
        installed = ("Norvaset.exe", "Norvaset.hlp", "Welcome.txt", "License.txt",
                     "Uninstall.exe")
        self.assert_holds(folder, *installed)
        self.assertTrue(self.start_menu_entry("users/*/AppData/Roaming"))
        self.assert_is_listed(r"HKCU")
        self.assert_is_offered(r"HKCU")

        process = self.read(os.path.join(folder, "Norvaset.exe"))
        self.assertEqual(self.setup(), IN_USE)
        self.assertEqual(self.wine(os.path.join(folder, "Uninstall.exe"), "/S", "_?=" + shown_path(folder))[1], IN_USE)
        self.assert_holds(folder, "Norvaset.dat", "Norvaset.dat.lock", *installed)
        self.close(process)
        self.assertEqual(self.setup(), 0, "again, as for an update")

        self.uninstall(folder, "/CurrentUser")
        self.assert_holds(folder, "Norvaset.dat")
        self.assert_tells_of_book(os.path.join(folder, "Norvaset.dat"))
        self.assertFalse(self.start_menu_entry("users/*/AppData/Roaming"))
        self.assertEqual(self.traces(), [])

    def test_for_all_users_in_a_chosen_folder(self):
        self.wine("reg", "add", r"HKLM\Software\Classes\.txt", "/ve", "/d", "txtfile", "/f")
        # In pieces, because Wine would put it into quotes as a whole, which the switch does not know.
        self.assertEqual(self.setup("/AllUsers", *r"/D=C:\Program Files\My books".split()), 0)
        folder = os.path.join(self.drive, "Program Files", "My books")
        self.assertTrue(self.start_menu_entry("ProgramData"))
        self.assert_is_listed("HKLM")
        self.assertEqual(self.registered(r"HKLM\Software\Classes\.txt")["(Default)"], "txtfile", "still the default")

        self.close(self.read(os.path.join(folder, "Norvaset.exe")))
        self.assert_tells_of_book(os.path.join(folder, "Norvaset.dat")) # Wine lets everybody write there
        self.uninstall(folder, "/AllUsers", "/RemoveData")
        self.assertFalse(os.path.exists(folder))
        self.assertFalse(self.start_menu_entry("ProgramData"))
        self.assertEqual(self.traces(), [])
        self.assertEqual(self.registered(r"HKLM\Software\Classes\.txt")["(Default)"], "txtfile")

    def programs_of_user(self):
        return glob.glob(os.path.join(self.drive, "users/*/AppData/Local/Programs/Norvaset"))[0]

    def start_menu_entry(self, data_folder):
        return glob.glob(os.path.join(
            self.drive, data_folder, "Microsoft/Windows/Start Menu/Programs/Norvaset.lnk"))

    def assert_is_listed(self, root):
        """In the list of programs."""
        entry = self.registered(root + "\\" + UNINSTALL)
        self.assertEqual(entry["DisplayName"], "Norvaset")
        self.assertRegex(entry["DisplayVersion"], r"^\d+\.\d+\.\d+$")
        self.assertTrue(entry["Publisher"])
        self.assertTrue(entry["DisplayIcon"].endswith(r"\Norvaset.exe,0"))
        self.assertIn("Uninstall.exe", entry["QuietUninstallString"])
        self.assertGreater(int(entry["EstimatedSize"], 16), 1000)

    def assert_is_offered(self, root):
        """Under "Open with"."""
        classes = root + r"\Software\Classes"
        kinds = {".txt": "text", ".rtf": "richtext", ".htm": "html", ".html": "html",
                 ".xhtml": "html"}
        self.assertEqual(set(self.registered(classes + r"\Applications\Norvaset.exe\SupportedTypes")), set(kinds))
        for ending, kind in kinds.items():
            self.assertIn("Norvaset." + kind, self.registered(f"{classes}\\{ending}\\OpenWithProgids"))
            command = self.registered(f"{classes}\\Norvaset.{kind}\\shell\\open\\command")["(Default)"]
            self.assertIn('Norvaset.exe" "%1"', command)


class Portable(WindowsTest):
    def test_read_from_a_folder(self):
        with zipfile.ZipFile(package("Norvaset_*_portable.zip")) as archive:
            archive.extractall(self.folder)
        folder = os.path.join(self.folder, "Norvaset")
        carried = ("Norvaset.exe", "Norvaset.hlp", "Welcome.txt", "Readme.txt", "License.txt")
        self.assert_holds(folder, *carried)
        self.close(self.read(os.path.join(folder, "Norvaset.exe")))
        self.assert_holds(folder, "Norvaset.dat", *carried)
        self.assert_tells_of_book(os.path.join(folder, "Norvaset.dat"))


if __name__ == "__main__":
    main(["wine"])
