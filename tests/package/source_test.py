"""The program installed by CMake under any prefix, and the tarball that other distributions build."""
import json
import os
import shutil
import subprocess
import tarfile

from harness.wait import wait_for
from package_test import PackageTest, main, package

BUILD = os.environ.get("NORVASET_BUILD", "")
SOURCE = os.environ.get("NORVASET_SOURCE", "")
FLATPAK = os.path.join(SOURCE, "packaging/flatpak/example.norvaset.Norvaset.yml")
SIZES = (16, 32, 48, 64, 128, 256)
INSTALLED = {
    "bin/Norvaset",
    "lib/norvaset/norvaset-print.so",
    "lib/norvaset/norvaset-web.so",
    "share/applications/norvaset.desktop",
    "share/icons/hicolor/scalable/apps/norvaset.svg",
    *(f"share/icons/hicolor/{size}x{size}/apps/norvaset.png" for size in SIZES),
    "share/man/man1/Norvaset.1",
    "share/metainfo/norvaset.metainfo.xml",
    "share/norvaset/Norvaset.hlp",
    "share/norvaset/Welcome.txt",
}


def files_in(folder):
    return {os.path.relpath(os.path.join(place, name), folder)
            for place, _, names in os.walk(folder) for name in names}


class Source(PackageTest):
    def install(self, *arguments, **variables):
        subprocess.run(["cmake", "--install", BUILD, *arguments], check=True,
                       env=os.environ | variables, stdout=subprocess.DEVNULL)

    def test_runs_from_wherever_it_is(self):
        prefix, moved = (os.path.join(self.folder, name) for name in ("opt", "a folder elsewhere"))
        self.install("--prefix", prefix, "--component", "reader")
        self.assertEqual(files_in(prefix), INSTALLED)
        os.rename(prefix, moved)
        for name in ("bin/Norvaset", *(name for name in INSTALLED if name.endswith(".so"))):
            with open(os.path.join(moved, name), "rb") as file:
                self.assertNotIn(BUILD.encode(), file.read(), f"{name} knows where it was built")
        home = os.path.join(self.folder, "home")
        os.mkdir(home, mode=0o700)
        process = self.start([os.path.join(moved, "bin/Norvaset"), self.book],
                             {"HOME": home, "XDG_RUNTIME_DIR": home})
        wait_for(lambda: "Book.txt" in self.title(), "the book")
        self.press("ctrl+p")  # by a module
        wait_for(lambda: self.window_named("^Print$"), "the print dialog")
        self.screen.xdotool("key", "Escape")
        wait_for(lambda: not self.window_named("^Print$"), "the print dialog to close")
        self.look_into_help()
        self.close(process)

    def test_stages_for_a_package(self):
        stage = os.path.join(self.folder, "stage")
        self.install("--prefix", "/usr", "--component", "reader", DESTDIR=stage)
        self.assertEqual(files_in(os.path.join(stage, "usr")), INSTALLED)
        self.assertEqual(os.listdir(stage), ["usr"])

    def test_the_tarball_is_enough_to_build(self):
        with tarfile.open(package("norvaset-*.tar.gz")) as tarball:
            tarball.extractall(self.folder)
        (top,) = (name for name in os.listdir(self.folder) if name.startswith("norvaset-"))
        build = os.path.join(self.folder, "build")
        subprocess.run(["cmake", "-S", os.path.join(self.folder, top), "-B", build, "-G", "Ninja",
                        "-DBUILD_TESTING=OFF", "-DNORVASET_HTML_ENGINE=OFF"],
                       check=True, stdout=subprocess.DEVNULL)
        subprocess.run(["cmake", "--build", build, "--target", "help_file"], check=True,
                       stdout=subprocess.DEVNULL)
        self.assertTrue(os.path.exists(os.path.join(build, "Norvaset.hlp")))

    def test_the_flatpak_installs_what_is_here(self):
        if not shutil.which("flatpak-builder"):
            self.skipTest("flatpak-builder is not installed")
        shown = subprocess.run(["flatpak-builder", "--show-manifest", FLATPAK], check=True,
                               capture_output=True, text=True, cwd=self.folder)
        manifest = json.loads(shown.stdout)
        self.assertEqual(manifest["id"] + ".yml", os.path.basename(FLATPAK))
        for key, place in (("command", "bin/{}"), ("rename-desktop-file", "share/applications/{}"),
                           ("rename-appdata-file", "share/metainfo/{}"),
                           ("rename-icon", "share/icons/hicolor/scalable/apps/{}.svg")):
            self.assertIn(place.format(manifest[key]), INSTALLED)


if __name__ == "__main__":
    main(["cmake"])
