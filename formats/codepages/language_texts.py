"""Running text of many languages, from what Debian packages bring.

Usage: language_texts.py FOLDER [--held-out] fetches the packages by apt-get and unpacks them into a folder; nothing is
installed. TRAINING is what the letter tables are made from, HELD_OUT what the guess is measured with; no text is in both.
"""

import argparse
import gettext
import glob
import gzip
import html
import os
import re
import subprocess
import sys
import tempfile

# Language: the folder names that packages have for it.
LANGUAGES = {
    "en": ("en", "C"), "fr": ("fr",), "de": ("de",), "es": ("es",), "pt": ("pt", "pt_BR", "pt-br"), "it": ("it",),
    "nl": ("nl",), "sv": ("sv",), "da": ("da",), "nb": ("nb", "nb_NO"), "fi": ("fi",), "is": ("is",), "ca": ("ca",),
    "ga": ("ga",), "gd": ("gd",), "br": ("br",), "cy": ("cy",), "eo": ("eo",), "mt": ("mt",),
    "et": ("et",), "lv": ("lv",), "lt": ("lt",),
    "pl": ("pl",), "cs": ("cs",), "sk": ("sk",), "sl": ("sl",), "hr": ("hr", "sr@latin"), "hu": ("hu",),
    "ro": ("ro",), "sq": ("sq",), "tr": ("tr",), "vi": ("vi",),
    "ru": ("ru",), "uk": ("uk",), "be": ("be",), "bg": ("bg",), "sr": ("sr",), "mk": ("mk",),
    "kk": ("kk",), "tt": ("tt",), "id": ("id",),
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
    "kk": (NAMES_OF_COUNTRIES,), "tt": (NAMES_OF_COUNTRIES,),
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

# Of Debian 12, with the versions that the tables were made from.
PACKAGES = {
    **dict.fromkeys(("libreoffice-l10n-" + name for name in (
        "ar be bg ca cs cy da de el eo es et fi fr ga he hr hu id is it ja kk ko lt lv mk nb nl pl pt ro ru sk sl sr sv th tr uk "
        "vi zh-cn zh-tw").split()), "4:7.4.7-1+deb12u14"),
    **dict.fromkeys(("manpages-" + name for name in (
        "cs da de el es fi fr it mk nb nl pt-br ro ru sr sv uk vi").split()), "4.18.1-1"),
    "manpages-hu": "1:4.18.1-1", "manpages-pl": "1:4.18.1-1", "manpages-ja": "0.5.0.0.20221215+dfsg-1",
    "manpages-tr": "2.0.6-2", "manpages-zh": "1.6.4.0-1",
    "fortunes": "1:1.99.1-7.3", "fortunes-bg": "1.4", "fortunes-br": "20220821", "fortunes-cs": "2.0.9-1.1",
    "fortunes-de": "0.35-1", "fortunes-eo": "20020729b-1.1", "fortunes-es": "1.36", "fortunes-ga": "0.10+nmu1",
    "fortunes-it": "1.99-4.1", "fortunes-pl": "0.0.20130525-3", "fortunes-ru": "1.52-3.1", "fortunes-zh": "2.98",
    "vlc-l10n": "3.0.24-0+deb12u1", "gnome-user-docs": "43.0-2", "iso-codes": "4.15.0-1",
}
HELD_OUT_PACKAGES = ("wesnoth-1.16-data", "debian-handbook", "installation-guide-amd64", "gimp-data", "gnucash-common",
                     "aptitude-common")
FETCHED = "fetched"  # the file of a folder that names the packages in it, with their versions

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


def fetched(folder):
    """The packages in a folder and their versions."""
    try:
        with open(os.path.join(folder, FETCHED), encoding="ascii") as file:
            return dict(line.split() for line in file)
    except OSError:
        return {}


def missing(folder):
    there = fetched(folder)
    return [package for package, version in PACKAGES.items() if there.get(package) != version]


def fetch(folder, packages):
    os.makedirs(folder, exist_ok=True)
    with tempfile.TemporaryDirectory() as downloads:
        subprocess.run(["apt-get", "download", *packages], cwd=downloads, check=True, stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL)
        with open(os.path.join(folder, FETCHED), "a", encoding="ascii") as file:
            for name in sorted(os.listdir(downloads)):
                path = os.path.join(downloads, name)
                subprocess.run(["dpkg-deb", "-x", path, folder], check=True)
                facts = subprocess.run(["dpkg-deb", "-W", path], capture_output=True, text=True, check=True)
                file.write(facts.stdout.replace("\t", " "))


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("folder")
    parser.add_argument("--held-out", action="store_true", help="the texts that the guess is measured with, too")
    options = parser.parse_args()
    fetch(options.folder, missing(options.folder))
    if options.held_out:
        fetch(options.folder + "-held-out", HELD_OUT_PACKAGES)
    for package in missing(options.folder):
        print("another version than the tables were made from:", package, file=sys.stderr)


if __name__ == "__main__":
    main()
