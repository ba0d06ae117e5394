"""Writes the letter tables of the charset guess from running text.

Usage: make_language_tables.py FOLDER OUTPUT, where FOLDER has the unpacked packages (see language_texts.py).

For a language: its letters, commonest first, and how likely each follows another: -log2 of that in quarters of a bit, one
printable character for each pair. For languages written in ideographs or syllables: their commonest characters, in
bands of falling frequency.
"""

import math
import sys
import unicodedata
from collections import Counter

import language_texts

IDEOGRAPHIC = ("ja", "ko", "zh", "zh_TW")
SCRIPTS = {
    **dict.fromkeys(("ru", "uk", "be", "bg", "sr", "mk", "kk", "tt"), "CYRILLIC"),
    "el": "GREEK", "he": "HEBREW", "ar": "ARABIC", "fa": "ARABIC", "th": "THAI",
}
RAREST = 1e-5  # of a language's letters; a rarer one is a foreign letter
CORE = 1e-3  # no charset is used for a language that lacks one as common as this
MOST_LETTERS = {"vi": 110, "th": 80}
STEPS = 4  # of a bit
LEVELS = 56
FIRST_LEVEL = ord("#")  # up to "Z": no quote and no backslash
BANDS = (32, 96, 224, 480, 992, 2016)  # where each ends

LAYOUT = """\
// Written by make_language_tables.py. Do not edit.
//
// arabicForms: the letter that each presentation form from U+FE70 on is a form of.
//
// languageModels: for each language its name, its script, the number of its letters, how many of
// them every charset for it has, the letters, commonest first, and a square of costs. Its rows and
// columns are classes: 0 what is no letter of the script, 1 any other letter of the script, 2 and
// on the letters in their order. The character in row a, column b is -log2 of how likely b follows
// a, in quarters of a bit: '#' is 0, each next ASCII character one more, up to 'Z'.
//
// characterModels: for each language of many characters its name and six bands of them, the
// commonest band first: -log2 of how often one of the band stands, in quarters of a bit, and the
// characters in the order of their code points.
"""

# Letters of the spelling that the texts may hardly have.
SPELLING = {
    "fr": "\u0153\u00e6\u00eb\u00fc\u00ff", "fi": "\u00e5\u0161\u017e", "et": "\u0161\u017e", "es": "\u00fc\u00ef",
    "pt": "\u00fc\u00e0", "it": "\u00ee\u00ef\u00e9\u00ec\u00ed\u00fa", "nl": "\u00eb\u00ef\u00e9\u00e8\u00f6\u00fc\u00e1\u00f3",
    "sv": "\u00e9\u00e0\u00fc", "da": "\u00e9\u00fc", "nb": "\u00e9\u00f2\u00f4\u00e8", "de": "\u00e9\u00e0", "en": "\u00e9\u00e8\u00ea\u00e7\u00ef\u00eb\u00f6\u00e6",
    "gd": "\u00e9\u00f3\u00e1", "br": "\u00ea\u00e9\u00fc",
    "cy": "\u0177\u0175\u00e2\u00ea\u00ee\u00f4\u00fb\u00ef\u00eb\u00e4\u00f6\u00e1\u00f3", "pl": "\u00e9", "hu": "\u00e4",
}

COMMA_BELOW = str.maketrans("\u0219\u021b\u0218\u021a", "\u015f\u0163\u015e\u0162")
TONES = "\u0300\u0301\u0303\u0309\u0323"


def folded(text):
    """Small letters; Romanian with the cedilla that its code pages have instead of the comma."""
    return text.translate(COMMA_BELOW).replace("\u0130", "i").lower()


def with_loose_tones(text):
    """Vietnamese as code page 1258 has it: the tone after its letter, unless the page has both in one."""
    parts = []
    for character in text:
        plain = unicodedata.normalize("NFD", character)
        tones = [mark for mark in plain if mark in TONES]
        if not tones or character.encode("cp1258", "ignore"):
            parts.append(character)
        else:
            rest = "".join(mark for mark in plain if mark not in TONES)
            parts.append(unicodedata.normalize("NFC", rest) + tones[0])
    return "".join(parts)


def is_letter(character, script):
    if unicodedata.category(character)[0] not in "LM":
        return False
    if script == "LATIN" and character in TONES:
        return True
    return unicodedata.name(character, "").startswith(script)


def letters_of(text, script, most, spelling):
    counts = Counter(c for c in text if is_letter(c, script))
    total = sum(counts.values())
    letters = [c for c, n in counts.most_common(most) if n >= RAREST * total and n > 2 and ord(c) < 0x10000]
    letters += [c for c in spelling if c not in letters]
    return letters, sum(counts[c] >= CORE * total for c in letters)


def pair_counts(text, letters, script):
    """Classes: 0 is all that is no letter of the script, 1 its letters that are not the language's."""
    classes = {letter: number + 2 for number, letter in enumerate(letters)}
    kinds = {c: classes.get(c, 1 if is_letter(c, script) else 0) for c in set(text)}
    sequence = [kinds[c] for c in text]
    return Counter(zip(sequence, sequence[1:]))


def costs(pairs, size):
    """Of each pair, after its first: smoothed by how common the second is anyway."""
    smoothing = 12.0
    second = [8.0] * size
    for (a, b), n in pairs.items():
        if (a, b) != (0, 0):
            second[b] += n
    total = sum(second)
    rows = []
    for a in range(size):
        row = [pairs.get((a, b), 0) if (a, b) != (0, 0) else 0 for b in range(size)]
        spread = [smoothing * second[b] / total if (a, b) != (0, 0) else 0 for b in range(size)]
        count = sum(row) + sum(spread)
        shares = [max((n + s) / count, 1e-9) for n, s in zip(row, spread)]
        rows.append([min(LEVELS - 1, round(-math.log2(share) * STEPS)) for share in shares])
    rows[0][0] = 0
    return rows


def literal(text):
    return "".join(c if " " <= c <= "~" and c not in '"\\' else "\\u%04X" % ord(c) for c in text)


def write_arabic_forms(file):
    """The letters that the presentation forms from U+FE70 on are forms of."""
    forms = [unicodedata.normalize("NFKC", chr(form)).strip()[:1] or "\u0640" for form in range(0xFE70, 0xFEFD)]
    file.write('const char16_t arabicForms[] = u"%s";\n\n' % literal("".join(forms)))


def write_language(file, language, text):
    script = SCRIPTS.get(language, "LATIN")
    text = folded(text)
    if script == "ARABIC":
        text = unicodedata.normalize("NFKC", text)
    if script != "LATIN":
        lines = (line for line in text.split("\n") if any(is_letter(c, script) for c in line))
        text = "\n".join(lines)
    if language == "vi":
        half = len(text) // 2
        text = text + "\n" + with_loose_tones(text)
    letters, core = letters_of(text, script, MOST_LETTERS.get(language, 60), SPELLING.get(language, ""))
    rows = costs(pair_counts(text, letters, script), len(letters) + 2)
    file.write('{"%s", LetterScript::%s, %d, %d, u"%s",\n' % (language, script.capitalize(), len(letters), core,
                                                     literal("".join(letters))))
    for row in rows:
        shown = "".join(chr(FIRST_LEVEL + cost) for cost in row)
        file.write('    "%s"\n' % shown.replace("??", "?\\?").replace("??", "?\\?"))  # no trigraphs
    file.write("},\n")
    print(language, len(letters), "".join(letters), file=sys.stderr)


def write_characters(file, language, text):
    counts = Counter(c for c in text if 0x80 <= ord(c) < 0x10000 and not c.isspace())
    total = sum(counts.values())
    common = [c for c, _ in counts.most_common(BANDS[-1])]
    file.write('{"%s", {\n' % language)
    begin = 0
    for end in BANDS:
        band = sorted(common[begin:end])
        share = sum(counts[c] for c in band) / total / len(band)
        file.write('    {%d, u"%s"},\n' % (round(-math.log2(share) * STEPS), literal("".join(band))))
        begin = end
    file.write("}},\n")


def main():
    root, output = sys.argv[1:]
    with open(output, "w", encoding="ascii", newline="\n") as file:
        file.write(LAYOUT)
        file.write('#include "formats/codepages/language_tables.h"\n\n')
        file.write("// clang-format off\n")
        write_arabic_forms(file)
        file.write("const LanguageModel languageModels[languageCount] = {\n")
        languages = [each for each in language_texts.LANGUAGES if each not in IDEOGRAPHIC]
        for language in languages:
            write_language(file, language, language_texts.training_text(root, language))
        file.write("};\n\nconst CharacterModel characterModels[characterModelCount] = {\n")
        for language in IDEOGRAPHIC:
            write_characters(file, language, language_texts.training_text(root, language))
        file.write("};\n// clang-format on\n")
    print(len(languages), "languages", file=sys.stderr)


if __name__ == "__main__":
    main()
