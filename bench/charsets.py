#!/usr/bin/python3
"""How often the charset of a plain text is guessed right, beside other detectors, on texts that no table was made from.

Usage: charsets.py PROGRAM FOLDER [--cuts N] [--slow N] [--only WORD] [--seed N] [--wrong]
PROGRAM is build/linux/charset_guesses; FOLDER has the held-out packages of formats/codepages/language_texts.py. N cuts
are made for each language and charset; --slow takes that many of them for the detectors written in Python.

Right: the decoded text is equal, character by character. Undecided, of the others: they say nothing.
The others are Debian's libuchardet0, python3-chardet and python3-charset-normalizer; libfribidi0 orders lines
for texts in visual order.
"""

import argparse
import codecs
import collections
import ctypes
import os
import random
import struct
import subprocess
import sys
import textwrap
import unicodedata

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "formats", "codepages"))
sys.dont_write_bytecode = True
import language_texts  # noqa: E402
import make_language_tables  # noqa: E402

WESTERN = "cp1252 cp850 mac_roman"
CHARSETS = {
    "fr": WESTERN + " iso8859_15 cp437 cp863", "de": WESTERN + " cp437", "es": WESTERN + " cp437", "pt": WESTERN + " cp860",
    "it": WESTERN, "nl": "cp1252", "sv": WESTERN + " cp437", "da": WESTERN + " cp865", "nb": "cp1252 cp865",
    "fi": "cp1252 cp850 iso8859_15", "is": "cp1252 cp861 mac_iceland", "ca": "cp1252", "ga": "cp1252",
    "gd": "cp1252 iso8859_14", "br": "cp1252", "cy": "iso8859_14", "eo": "iso8859_3", "et": "cp1257 iso8859_13 iso8859_15 iso8859_4",
    "lv": "cp1257 iso8859_13 cp775 iso8859_4 iso8859_10", "lt": "cp1257 iso8859_13 cp775 iso8859_4",
    **dict.fromkeys(("pl", "cs", "sk", "hu", "sl", "hr"), "cp1250 iso8859_2 cp852 mac_latin2"),
    "ro": "cp1250 iso8859_2 iso8859_16 cp852", "tr": "cp1254 iso8859_9 cp857 mac_turkish iso8859_3",
    "vi": "cp1258 VISCII TCVN", "ru": "cp1251 koi8_r cp866 iso8859_5 mac_cyrillic cp855",
    "uk": "cp1251 koi8_u iso8859_5 mac_cyrillic", "be": "cp1251 iso8859_5", "bg": "cp1251 iso8859_5 cp855 mac_cyrillic",
    "sr": "cp1251 iso8859_5 cp855", "mk": "cp1251 iso8859_5", "el": "cp1253 iso8859_7 cp737 cp869 mac_greek",
    "he": "cp1255 iso8859_8 cp862 visual_iso8859_8 visual_cp862 visual_cp1255",
    "ar": "cp1256 iso8859_6 cp720", "fa": "cp1256", "th": "cp874",
    "ja": "cp932 euc_jp iso2022_jp", "ko": "cp949 johab iso2022_kr", "zh": "gb18030 ISO-2022-CN hz",
    "zh_TW": "big5hkscs EUC-TW",
    "en": "cp1252",
}
LENGTHS = (20, 60, 200, 600, 2000, 20000)
PLAIN = {"\u2019": "'", "\u2018": "'", "\u201c": '"', "\u201d": '"', "\u201e": '"', "\u2013": "-", "\u2014": "-",
         "\u2026": "...", "\u00a0": " ", "\u202f": " ", "\u2022": "*", "\u2212": "-", "\u2192": "->", "\u201a": "'",
         "\u00ab": '"', "\u00bb": '"', "\u2039": "'", "\u203a": "'"}


def iconv(data, source, target):
    result = subprocess.run(["iconv", "-c", "-f", source, "-t", target], input=data, capture_output=True, check=False)
    return result.stdout


def is_python_codec(charset):
    try:
        codecs.lookup(charset)
        return True
    except LookupError:
        return False


def encode(text, charset, language):
    """Bytes and the text that they are: what the charset does not have is written in another way or left out."""
    if charset.startswith("visual_"):
        return encode_visual(text, charset.removeprefix("visual_"))
    if charset == "cp1258":
        text = make_language_tables.with_loose_tones(text)
    if language == "ro" and charset != "iso8859_16":
        text = text.translate(make_language_tables.COMMA_BELOW)
    if language == "ro" and charset == "iso8859_16":
        text = text.translate({v: k for k, v in make_language_tables.COMMA_BELOW.items()})
    if charset == "ISO-2022-CN":  # which iconv does not read back where the set changes between two characters
        text = "".join(c for c in text if c < "\x80" or can(c, charset))
        return iconv(text.encode(), "UTF-8", charset), text
    if charset in ("VISCII", "TCVN", "EUC-TW"):
        data = iconv(text.encode(), "UTF-8", charset)
        return data, iconv(data, charset, "UTF-8").decode()
    text = "".join(c if c < "\x80" or can(c, charset) else PLAIN.get(c, "") for c in text)
    data = text.encode(charset, "ignore")
    return data, data.decode(charset, "replace")


BIDI = ctypes.CDLL("libfribidi.so.0")
RIGHT_TO_LEFT = 0x111  # FRIBIDI_PAR_RTL


def seen(line):
    """A line from left to right as it is seen in a Hebrew text."""
    if not any("\u05d0" <= c <= "\u05ea" for c in line):
        return line
    direction = ctypes.c_uint32(RIGHT_TO_LEFT)
    ordered = (ctypes.c_uint32 * (len(line) + 1))()
    BIDI.fribidi_log2vis((ctypes.c_uint32 * len(line))(*map(ord, line)), len(line), ctypes.byref(direction), ordered,
                         None, None, None)
    return "".join(map(chr, ordered[:len(line)]))


def encode_visual(text, charset):
    """In lines of a page. The text that they are is in logical order, though Norvaset alone gives that."""
    text = "\n".join("\n".join(textwrap.wrap(line, 72)) for line in text.split("\n"))
    text = encode(text, charset, "he")[1]
    return encode("\n".join(map(seen, text.split("\n"))), charset, "he")[0], text


KNOWN = {}


def can(character, charset):
    key = character, charset
    if key not in KNOWN:
        KNOWN[key] = bool(character.encode(charset, "ignore") if is_python_codec(charset)
                          else iconv(character.encode(), "UTF-8", charset))
    return KNOWN[key]


def cuts(texts, charset, language, count, seed):
    """Random stretches that begin at a line or a word, of all lengths in turn, with a letter that is not ASCII in each."""
    choice = random.Random(seed)
    tries = 0
    made = 0
    while made < count and tries < 20 * count:
        tries += 1
        length = LENGTHS[made % len(LENGTHS)]
        text = choice.choice(texts)
        start = choice.randrange(max(1, len(text) - length))
        while start > 0 and not text[start - 1].isspace() and not ord(text[start]) > 0x2E7F:
            start -= 1
        # A length in bytes, roughly.
        size = length if ord(max(text[start:start + 50] or "a")) < 0x2E7F else length // 2
        part = unicodedata.normalize("NFC", text[start:start + size])
        data, plain = encode(part, charset, language)
        if len(data) < length // 3 or not any(ord(c) >= 0x80 and c.isalpha() for c in plain):
            continue
        made += 1
        yield length, data, plain


class Ours:
    name = "Norvaset"

    def __init__(self, program):
        self.process = subprocess.Popen([program, "1252"], stdin=subprocess.PIPE, stdout=subprocess.PIPE)

    def text(self, data):
        self.process.stdin.write(struct.pack("<I", len(data)) + data)
        self.process.stdin.flush()
        self.says = self.process.stdout.readline().decode().strip()
        size, = struct.unpack("<I", self.process.stdout.read(4))
        return self.process.stdout.read(size).decode()


class Named:
    """A detector that names a charset."""

    def text(self, data):
        self.says = self.charset(data)
        if not self.says:
            return None
        name = {"viscii": "VISCII", "euc-tw": "EUC-TW", "iso-2022-cn": "ISO-2022-CN", "mac-centraleurope": "mac_latin2",
                "windows-874": "cp874", "mac-cyrillic": "mac_cyrillic", "maccyrillic": "mac_cyrillic",
                "georgian-academy": "", "macroman": "mac_roman"}.get(self.says.lower(), self.says)
        if not is_python_codec(name):
            return iconv(data, name, "UTF-8").decode("utf-8", "replace") if name else ""
        return data.decode(name, "replace")


class Uchardet(Named):
    name = "uchardet"

    def __init__(self):
        self.library = ctypes.CDLL("libuchardet.so.0")
        self.library.uchardet_new.restype = ctypes.c_void_p
        self.library.uchardet_get_charset.restype = ctypes.c_char_p
        self.detector = ctypes.c_void_p(self.library.uchardet_new())

    def charset(self, data):
        self.library.uchardet_reset(self.detector)
        self.library.uchardet_handle_data(self.detector, data, ctypes.c_size_t(len(data)))
        self.library.uchardet_data_end(self.detector)
        return self.library.uchardet_get_charset(self.detector).decode()


class Chardet(Named):
    name = "chardet"

    def __init__(self):
        import chardet
        self.detect = chardet.detect

    def charset(self, data):
        return self.detect(data)["encoding"] or ""


class Normalizer(Named):
    name = "charset-normalizer"

    def __init__(self):
        import charset_normalizer
        self.detect = charset_normalizer.detect

    def charset(self, data):
        return self.detect(data)["encoding"] or ""


def same(text, plain):
    """NUL is shown as U+FFFD; a byte without a meaning differs."""
    return text == plain


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("folder")
    parser.add_argument("--cuts", type=int, default=120)
    parser.add_argument("--slow", type=int, default=0)
    parser.add_argument("--only", default="")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--wrong", action="store_true")
    options = parser.parse_args()
    ours = Ours(options.program)
    fast = [ours, Uchardet()]
    slow = [Chardet(), Normalizer()] if options.slow else []
    counts = collections.defaultdict(lambda: [0, 0, 0, 0])  # right, wrong, undecided, all
    for language, charsets in CHARSETS.items():
        if options.only and not any(word in (language, *charsets.split()) for word in options.only.split(",")):
            continue
        texts = [text for text in language_texts.held_out_texts(options.folder, language, 400000) if len(text) > 15000]
        if not texts:
            print("no text:", language, file=sys.stderr)
            continue
        for charset in charsets.split():
            if options.only and language not in options.only.split(",") and charset not in options.only.split(","):
                continue
            for number, (length, data, plain) in enumerate(cuts(texts, charset, language, options.cuts, options.seed)):
                for detector in fast + (slow if number < options.slow else []):
                    text = detector.text(data)
                    right = text is not None and same(text, plain)
                    key = detector.name, language, charset, length
                    counts[key][0 if right else 2 if text is None else 1] += 1
                    counts[key][3] += 1
                    if options.wrong and detector is ours and not right:
                        print(language, charset, length, "says", ours.says, repr(plain[:60]), repr((text or "")[:60]))
            report(counts, language, charset)
    print()
    for length in LENGTHS:
        report(counts, length=length)
    report(counts)


def report(counts, language=None, charset=None, length=None):
    line = "%-14s" % " ".join(str(each) for each in (language, charset, length) if each)
    names = list(dict.fromkeys(key[0] for key in counts))
    for name in names:
        if language:
            parts = []
            for each in LENGTHS:
                right, wrong, undecided, all_ = counts[name, language, charset, each]
                parts.append("%3d" % round(100 * right / all_) if all_ else "  -")
            line += "  %s %s" % (name, " ".join(parts))
        else:
            chosen = [value for key, value in counts.items() if key[0] == name and length in (None, key[3])]
            sums = [sum(each) for each in zip(*chosen)] or [0, 0, 0, 1]
            line += "  %s %.1f%% right %.1f%% wrong %.1f%% undecided of %d" % (
                name, *(100 * each / max(1, sums[3]) for each in sums[:3]), sums[3])
    print(line, flush=True)


if __name__ == "__main__":
    main()
