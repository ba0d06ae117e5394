"""Running text of many languages, from what Debian packages bring.

The packages are unpacked into a folder, not installed:
    apt-get download PACKAGE...; dpkg-deb -x PACKAGE.deb FOLDER

TRAINING is what the letter tables are made from, HELD_OUT what the guess is measured with; no text is in both.
"""

import gettext
import glob
import gzip
import html
import os
import re

# Language: the folder names that packages have for it.
LANGUAGES = {
    "en": ("en", "C"), "fr": ("fr",), "de": ("de",), "es": ("es",), "pt": ("pt", "pt_BR", "pt-br"), "it": ("it",),
    "nl": ("nl",), "sv": ("sv",), "da": ("da",), "nb": ("nb", "nb_NO"), "fi": ("fi",), "is": ("is",), "ca": ("ca",),
    "ga": ("ga",), "cy": ("cy",), "eo": ("eo",), "mt": ("mt",), "et": ("et",), "lv": ("lv",), "lt": ("lt",),
    "pl": ("pl",), "cs": ("cs",), "sk": ("sk",), "sl": ("sl",), "hr": ("hr", "sr@latin"), "hu": ("hu",),
    "ro": ("ro",), "sq": ("sq",), "tr": ("tr",), "vi": ("vi",),
    "ru": ("ru",), "uk": ("uk",), "be": ("be",), "bg": ("bg",), "sr": ("sr",), "mk": ("mk",),
    "el": ("el",), "he": ("he",), "ar": ("ar",), "fa": ("fa",), "th": ("th",),
    "ja": ("ja",), "ko": ("ko",), "zh": ("zh", "zh_CN"), "zh_TW": ("zh_TW",),
}

# The licences: VLC, aptitude, GIMP and GnuCash GPL-2+, LibreOffice MPL-2.0, the GNOME help CC-BY-SA-3.0, the fortunes
# in the public domain or GPL, manual pages GPL-2+ or BSD, iso-codes LGPL-2.1+, Debian's handbook and installation guide
# GPL-2+, Wesnoth GPL-2+.
TRAINING = (
    "usr/share/locale/{}/LC_MESSAGES/vlc.mo",
    "usr/lib/libreoffice/program/resource/{}/LC_MESSAGES/*.mo",
    "usr/share/help/{}/**/*.page",
    "usr/share/games/fortunes/{}/*",
    "usr/share/man/{}/man[157]/*.gz",
)
NAMES_OF_COUNTRIES = "usr/share/locale/{}/LC_MESSAGES/iso_*.mo"
TRAINING_MORE = {
    "mt": (NAMES_OF_COUNTRIES,), "sq": (NAMES_OF_COUNTRIES,),
    "en": tuple("usr/share/games/fortunes/" + name for name in
                ("computers", "cookie", "definitions", "education", "food", "humorists", "kids", "law", "literature",
                 "love", "medicine", "people", "politics", "science", "songs-poems", "wisdom", "work")),
    "pt": ("usr/share/games/fortunes/brasil",),
    "it": ("usr/share/games/fortunes/ita*", "usr/share/games/fortunes/formiche", "usr/share/games/fortunes/leggi"),
    "de": ("usr/share/games/fortunes/zuse",),
    "zh": ("usr/share/games/fortunes/chinese", "usr/share/games/fortunes/tang300"),
}
HELD_OUT = (
    "usr/share/games/wesnoth/*/locale/{}/LC_MESSAGES/*.mo",
    "usr/share/doc/debian-handbook/html/{}-*/*.html",
    "usr/share/doc/installation-guide-amd64/{}/*.html",
    "usr/share/locale/{}/LC_MESSAGES/gimp*.mo",
    "usr/share/locale/{}/LC_MESSAGES/gnucash.mo",
    "usr/share/locale/{}/LC_MESSAGES/aptitude.mo",
)

LEAST_SENTENCE = 12  # characters: shorter messages are words of menus


def read_bytes(path):
    with (gzip.open if path.endswith(".gz") else open)(path, "rb") as file:
        return file.read()


def decoded(data):
    """As UTF-8, or nothing: some old pages and fortunes are in other charsets, and guessing is not our task here."""
    try:
        return data.decode("utf-8")
    except UnicodeDecodeError:
        return ""


def messages_text(path):
    """The translations of a message catalogue that differ from their originals."""
    with open(path, "rb") as file:
        try:
            catalogue = gettext.GNUTranslations(file)._catalog
        except (OSError, UnicodeDecodeError):
            return ""
    texts = []
    for key, text in catalogue.items():
        original = key[0] if isinstance(key, tuple) else key
        original = original.split("\x04")[-1]
        if not original or text == original or (len(text) < LEAST_SENTENCE and "iso_" not in path):
            continue
        text = re.sub(r"<[^>]*>|%\d*\$?[-+0-9.l]*[a-zA-Z]|\{[^}]*\}|\$\w+|https?://\S+", " ", text)
        texts.append(re.sub(r"[&_~^](?=\w)", "", text))  # marks of access keys
    return "\n".join(texts)


def markup_text(data):
    text = re.sub(r"(?s)<(script|style|head|code|pre|cmd|file|info)\b.*?</\1>|<!--.*?-->", " ", decoded(data))
    text = html.unescape(re.sub(r"<[^>]*>", " ", text))
    return re.sub(r"[ \t]+", " ", re.sub(r"\s*\n\s*", "\n", text))


def manual_text(data):
    lines = [line for line in decoded(data).split("\n") if not line.startswith((".", "'"))]
    text = "\n".join(lines)
    text = text.replace("\\-", "-").replace("\\&", "")
    return re.sub(r"\\f\(..|\\f.|\\[(*]..|\\s[-+]?\d|\\.", " ", text)


def file_text(path):
    if path.endswith(".mo"):
        return messages_text(path)
    data = read_bytes(path)
    if path.endswith((".page", ".html")):
        return markup_text(data)
    if "/man/" in path:
        return manual_text(data)
    return decoded(data)


def pattern_text(root, pattern, most):
    parts, size = [], 0
    for path in sorted(glob.glob(os.path.join(glob.escape(root), pattern), recursive=True)):
        if not os.path.isfile(path) or path.endswith((".dat", ".u8")) or size >= most:
            continue
        text = file_text(path)
        parts.append(text)
        size += len(text)
    return "\n".join(parts)[:most]


def texts(root, language, patterns, most):
    """A text for each pattern and folder name, each `most` characters at most."""
    found = []
    for pattern in patterns:
        for name in LANGUAGES[language] if "{}" in pattern else ("",):
            text = pattern_text(root, pattern.replace("{}", name), most)
            if text:
                found.append(text)
    return found


def without_lines(text, lines):
    return "\n".join(line for line in text.split("\n") if line not in lines)


def translated(root, language, patterns, most):
    """Documents that are translated in part have English lines in between."""
    found = texts(root, language, patterns, most)
    if language == "en":
        return found
    english = set(line for text in texts(root, "en", patterns, 8 * most) for line in text.split("\n"))
    return [without_lines(text, english) for text in found]


def training_text(root, language, most=500000):
    return "\n".join(translated(root, language, TRAINING + TRAINING_MORE.get(language, ()), most))


def held_out_texts(root, language, most=400000):
    return translated(root, language, HELD_OUT, most)
