"""The checked-in tables are what their scripts make. Skipped (77) where what they are made from is missing or another version.

Usage: charset_tables_test.py [FOLDER], where FOLDER has the unpacked packages of language_texts.py (else NORVASET_TEXTS).
"""

import filecmp
import os
import subprocess
import sys
import tempfile

import language_texts

HERE = os.path.dirname(os.path.abspath(__file__))
SKIPPED = 77


def made_again(script, table, *arguments):
    with tempfile.TemporaryDirectory() as folder:
        output = os.path.join(folder, table)
        subprocess.run([sys.executable, "-B", os.path.join(HERE, script), *arguments, output], check=True,
                       stderr=subprocess.DEVNULL)
        same = filecmp.cmp(output, os.path.join(HERE, table), shallow=False)
    print(table, "is made again" if same else "DIFFERS from what %s makes" % script)
    return same


def main():
    folder = sys.argv[1] if len(sys.argv) > 1 else os.environ.get("NORVASET_TEXTS", "")
    ok, skipped = True, False
    charsets = subprocess.run(["iconv", "-l"], capture_output=True, text=True, check=False).stdout
    if all(name in charsets for name in ("VISCII", "TCVN", "EUC-TW")):
        ok = made_again("make_iconv_tables.py", "iconv_tables.txt")
    else:
        print("skipped: this iconv does not know VISCII, TCVN and EUC-TW")
        skipped = True
    missing = language_texts.missing(folder) if folder else list(language_texts.PACKAGES)
    if missing:
        print("skipped: no texts of", ", ".join(missing))
        skipped = True
    else:
        ok = made_again("make_language_tables.py", "language_tables.cpp", folder) and ok
    return 1 if not ok else SKIPPED if skipped else 0


if __name__ == "__main__":
    sys.exit(main())
