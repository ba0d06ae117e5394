"""The checked-in tables are what their scripts make again. Skipped (77) with a Python of another Unicode than they name."""

import filecmp
import os
import re
import subprocess
import sys
import tempfile
import unicodedata

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
TABLES = {
    "common/case_table.h": "common/make_case_table.py",
    "common/unicode_table.h": "common/make_unicode_table.py",
    "formats/codepages/code_page_tables.h": "formats/codepages/make_code_page_tables.py",
    "formats/html/html_entity_table.h": "formats/html/make_entity_table.py",
}
SKIPPED = 77


def unicode_of(table):
    """The version that it names; the installed one for a table of no version."""
    with open(table, encoding="ascii") as file:
        named = re.search(r"Unicode ([0-9.]+[0-9])", file.readline())
        return named.group(1) if named else unicodedata.unidata_version


def is_made_again(table, script):
    with tempfile.TemporaryDirectory() as folder:
        output = os.path.join(folder, "table.h")
        subprocess.run([sys.executable, "-B", os.path.join(ROOT, script), output], check=True)
        return filecmp.cmp(output, table, shallow=False)


def main():
    different, skipped = False, False
    for name, script in TABLES.items():
        table = os.path.join(ROOT, name)
        version = unicode_of(table)
        if version != unicodedata.unidata_version:
            print("skipped: %s is of Unicode %s, this Python has %s" % (name, version, unicodedata.unidata_version))
            skipped = True
        elif not is_made_again(table, script):
            print("%s DIFFERS from what %s makes" % (name, script))
            different = True
    return 1 if different else SKIPPED if skipped else 0


sys.exit(main())
