"""What software centres show: the metadata as it was built, and as it will be of the next version."""
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree

METAINFO, SOURCE = os.environ["METAINFO"], os.environ["SOURCE"]
RELEASE_NOTES = os.path.join(SOURCE, "packaging/linux/release_notes")
SKIPPED = 77  # exit code: ctest counts the test as skipped


def validate(text):
    with tempfile.NamedTemporaryFile("w", suffix=".metainfo.xml", encoding="utf-8") as file:
        file.write(text)
        file.flush()
        done = subprocess.run(["appstreamcli", "validate", "--no-net", "--explain", file.name],
                              capture_output=True, text=True, check=False)
    return done.stdout if done.returncode else ""


def release_notes(changelog, version):
    with tempfile.NamedTemporaryFile("w", encoding="utf-8") as file:
        file.write(changelog)
        file.flush()
        return subprocess.run([sys.executable, "-B", RELEASE_NOTES, file.name, version],
                              capture_output=True, text=True, check=False)


class Metainfo(unittest.TestCase):
    def setUp(self):
        with open(METAINFO, encoding="utf-8") as file:
            self.text = file.read()
        with open(os.path.join(SOURCE, "CHANGELOG.md"), encoding="utf-8") as file:
            self.changelog = file.read()

    def test_as_built(self):
        self.assertEqual(validate(self.text), "")
        root = ElementTree.fromstring(self.text)
        (image,) = root.findall("screenshots/screenshot/image")
        self.assertRegex(image.text, r"^https://.*/screenshot\.png$")
        numbers = [release.get("version") for release in root.findall("releases/release")]
        self.assertEqual(numbers, re.findall(r"^## \[(\d\S*)\]", self.changelog, re.MULTILINE))
        for release in root.findall("releases/release"):
            self.assertGreater(len("".join(release.find("description").itertext()).split()), 20)

    def test_as_of_the_next_version(self):
        """With what is unreleased now."""
        changelog = self.changelog.replace("[Unreleased]", "[9.0.0] - 2030-01-02")
        notes = release_notes(changelog, "9.0.0").stdout
        new = re.sub(r"  <releases>.*</releases>\n", lambda _: notes, self.text, flags=re.DOTALL)
        self.assertEqual(validate(new), "")
        first = ElementTree.fromstring(new).find("releases/release")
        self.assertEqual((first.get("version"), first.get("date")), ("9.0.0", "2030-01-02"))
        items = changelog[:changelog.index("## [1.0.0]")].count("\n- ")
        self.assertEqual(len(first.findall("description/ul/li")), items)

    def test_markup(self):
        done = release_notes("# Changelog\n\n## [2.0.0] - 2030-01-02\n\nNew & <old>:\n\n- *Copy* of `a*b`\n"
                             "  and [docs](docs/x.md), 3 * 4 * 5\n- two\n\nLast\nwords.\n", "2.0.0")
        words = " ".join(done.stdout.split())
        self.assertIn("<p>New &amp; &lt;old&gt;:</p> <ul> <li><em>Copy</em> of <code>a*b</code> "
                      "and docs, 3 * 4 * 5</li> <li>two</li> </ul> <p>Last words.</p>", words)

    def test_a_version_that_the_changelog_lacks(self):
        done = release_notes(self.changelog, "9.9.9")
        self.assertNotEqual(done.returncode, 0)
        self.assertIn("9.9.9", done.stderr)


if __name__ == "__main__":
    if not shutil.which("appstreamcli"):
        print("skipped; not found: appstreamcli")
        sys.exit(SKIPPED)
    unittest.main(verbosity=2)
