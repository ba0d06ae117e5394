"""The Debian packages: installed on this very machine, used by somebody who is not root, and purged."""
import os
import shutil
import subprocess
import sys

from harness.wait import wait_for
from package_test import SKIPPED, PackageTest, main, package, text_of

NAMES = ("norvaset", "norvaset-html")
NOBODY = 65534
SUDO = [] if os.geteuid() == 0 else ["sudo", "-n"]


def output(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def apt_get(*arguments):
    """Waits while another program installs something."""
    command = [*SUDO, "apt-get", "-qq", "--yes", "-o", "DPkg::Lock::Timeout=300", *arguments]
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL)


def is_installed(name):
    return os.path.exists(f"/var/lib/dpkg/info/{name}.list")


def purge_what_is_left():
    left = [name for name in reversed(NAMES) if is_installed(name)]
    if left:
        apt_get("purge", *left)


def files_of(name):
    """All files of an installed package, and the folders that are its own."""
    paths = output("dpkg", "-L", name).splitlines()
    return [path for path in paths if not os.path.isdir(path) or "norvaset" in os.path.basename(path)]


class DebianPackages(PackageTest):
    def test_install_read_and_purge(self):
        self.addCleanup(purge_what_is_left)
        apt_get("install", "--no-install-recommends", *(package(name + "_*.deb") for name in NAMES))
        installed = [path for name in NAMES for path in files_of(name)]
        self.assertIn("/usr/bin/Norvaset", installed)

        self.make_home()
        self.read(self.book, "Book.txt")
        if self.may_have_name_spaces():
            self.read(self.page(), "Lanterns")
        apt_get("purge", *reversed(NAMES))
        self.assertEqual([path for path in installed if os.path.lexists(path)], [])
        self.assertFalse(os.path.exists("/usr/bin/Norvaset.dat"))
        data_file = os.path.join(self.home, ".local/share/Norvaset/Norvaset.dat")
        self.assertIn(self.book, text_of(data_file), "the reader's data stays")

    def make_home(self):
        """Of another user if this one is root, who could write beside the program."""
        self.home = os.path.join(self.folder, "home")
        os.mkdir(self.home, mode=0o700)
        self.as_user = []
        if os.geteuid() == 0:
            os.chown(self.home, NOBODY, NOBODY)
            self.as_user = [shutil.which("setpriv"), "--reuid", str(NOBODY), "--regid", str(NOBODY), "--clear-groups"]

    def may_have_name_spaces(self):
        """The engine for HTML shuts itself in with them."""
        return subprocess.run([*self.as_user, "unshare", "--user", "true"], check=False).returncode == 0

    def page(self):
        path = os.path.join(self.folder, "Page.htm")
        with open(path, "w", encoding="ascii") as file:
            file.write("<title>Lanterns</title><p>It was a bright day.\n")
        return path

    def read(self, book, title):
        process = self.start([*self.as_user, "Norvaset", book], {"HOME": self.home, "XDG_RUNTIME_DIR": self.home})
        wait_for(lambda: title in self.title(), "the book")
        self.look_into_help()
        self.close(process)

    def test_only_the_module_for_html_needs_the_engine(self):
        needs = {name: output("dpkg-deb", "--field", package(name + "_*.deb"), "Depends") for name in NAMES}
        self.assertNotIn("webengine", needs["norvaset"])
        self.assertIn("webengine", needs["norvaset-html"])


def why_not():
    """Why nothing may be installed here, "" if it may."""
    if SUDO and subprocess.run([*SUDO, "true"], capture_output=True, check=False).returncode != 0:
        return "installing needs root or sudo without a password"
    if any(map(is_installed, NAMES)):
        return "norvaset is installed here already, and is not to be removed"
    return ""


if __name__ == "__main__":
    reason = "sudo is not installed" if SUDO and not shutil.which("sudo") else why_not()
    if reason:
        print("skipped;", reason)
        sys.exit(SKIPPED)
    main(["dpkg"])
