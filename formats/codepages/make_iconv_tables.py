"""Writes iconv_tables.txt: charsets that Python has no codec for, as the machine's iconv reads them.

Usage: make_iconv_tables.py OUTPUT. A line is a charset, the bytes before the last one in hexadecimal ("-" for none), the
value of the first last byte, and the characters from there on; U+FFFD is a byte without a meaning.
"""

import subprocess
import sys

HOLE = "\uFFFD"


def character(charset, sequence):
    result = subprocess.run(["iconv", "-f", charset, "-t", "UTF-8"], input=sequence, capture_output=True, check=False)
    text = result.stdout.decode("utf-8") if result.returncode == 0 else ""
    return text if len(text) == 1 and ord(text) <= 0xFFFF else HOLE


def row(charset, sequences):
    """All at once where each has a meaning, else one by one: iconv is started for every call."""
    joined = subprocess.run(["iconv", "-f", charset, "-t", "UTF-8"], input=b"".join(sequences), capture_output=True,
                            check=False)
    text = joined.stdout.decode("utf-8", "replace") if joined.returncode == 0 else ""
    if len(text) == len(sequences) and all(ord(c) <= 0xFFFF for c in text):
        return text
    return "".join(character(charset, sequence) for sequence in sequences)


def single_bytes(charset):
    # TCVN puts a letter and the tone mark after it together, so each byte is read by itself.
    yield "-", 0x00, "".join(character(charset, bytes([byte])) for byte in range(0x20))
    yield "-", 0x80, "".join(character(charset, bytes([byte])) for byte in range(0x80, 0x100))


def planes(charset, leads):
    for lead in leads:
        for second in range(0xA1, 0xFF):
            text = row(charset, [bytes([*lead, second, last]) for last in range(0xA1, 0xFF)])
            if text.strip(HOLE):
                yield (bytes(lead) + bytes([second])).hex(), 0xA1, text


def main():
    tables = {"VISCII": single_bytes("VISCII"), "TCVN": single_bytes("TCVN"),
              "EUC-TW": planes("EUC-TW", ((), (0x8E, 0xA2), (0x8E, 0xA3)))}
    with open(sys.argv[1], "w", encoding="utf-8", newline="\n") as file:
        for charset, rows in tables.items():
            for before, first, text in rows:
                # Controls would break the lines.
                shown = "".join(HOLE if c < " " or "\x7F" <= c < "\xA0" else c for c in text)
                file.write("%s %s %02x %s\n" % (charset, before, first, shown))


if __name__ == "__main__":
    main()
