"""Writes the C++ table behind common/unicode.h: what the Unicode Character Database says of each character.

Usage: make_unicode_table.py OUTPUT. Blocks of characters, of which the many equal ones are written once, hold the
index of each character's properties. Python knows categories, directions and widths. Of how characters join into
clusters (Unicode Standard Annex 29, Grapheme_Cluster_Break) it knows nothing: that follows from the categories, with
the exceptions listed here.
"""

import sys
import unicodedata

BLOCK = 256  # characters
VIRAMA = 9  # canonical combining class

# Spacing marks that are a character of their own to the caret.
MARKS_APART = {0x102B, 0x102C, 0x1038, *range(0x1062, 0x1065), *range(0x1067, 0x106E), 0x1083, *range(0x1087, 0x108D),
               0x108F, *range(0x109A, 0x109D), 0x1A61, 0x1A63, 0x1A64, 0xAA7B, 0xAA7D, 0x11720, 0x11721}
# No marks, but joined to the character before: Thai and Lao AM, halfwidth Katakana sounds, the zero width non-joiner,
# skin tones, tags.
EXTENDING = {0x0E33, 0x0EB3, 0xFF9E, 0xFF9F, 0x200C, *range(0x1F3FB, 0x1F400), *range(0xE0020, 0xE0080)}
# Joined to the character after: number and poetry signs, and letters that stand before a consonant as a sign.
PREPENDED = {*range(0x0600, 0x0606), 0x06DD, 0x070F, 0x0890, 0x0891, 0x08E2, 0x0D4E, 0x110BD, 0x110CD, 0x111C2, 0x111C3,
             0x1193F, 0x11941, 0x11A3A, *range(0x11A84, 0x11A8A), 0x11D46}


def cluster_join(code, category):
    if code == 0x200D:
        return "Joiner"
    if code in EXTENDING or (category in ("Mn", "Mc", "Me") and code not in MARKS_APART):
        return "Extending"
    if code in PREPENDED:
        return "Prepended"
    if 0x1100 <= code < 0x1160 or 0xA960 <= code < 0xA97D:
        return "LeadingJamo"
    if 0x1160 <= code < 0x11A8 or 0xD7B0 <= code < 0xD7C7:
        return "VowelJamo"
    if 0x11A8 <= code < 0x1200 or 0xD7CB <= code < 0xD7FC:
        return "TrailingJamo"
    if 0xAC00 <= code < 0xD7A4:
        return "OpenSyllable" if (code - 0xAC00) % 28 == 0 else "ClosedSyllable"
    if 0x1F1E6 <= code < 0x1F200:
        return "RegionalIndicator"
    if category in ("Cc", "Cf", "Cs", "Zl", "Zp"):
        return "Control"
    # Those of which a joiner makes one picture: these symbols and a few more that are not joined in use.
    if (category == "So" and code >= 0x2000) or 0x2194 <= code < 0x219A or 0x1F000 <= code < 0x1FB00:
        return "Pictograph"
    return "Other"


def word_part(category):
    if category[0] == "L":
        return "Letter"
    if category[0] == "N":
        return "Number"
    return "Mark" if category[0] == "M" or category == "Cf" else "None"


def properties(code):
    character = chr(code)
    category = unicodedata.category(character)
    direction = unicodedata.bidirectional(character) or "L"  # unassigned ones, too
    flags = []
    if category in ("Mn", "Mc", "Me", "Cf"):
        flags.append("markOrFormat")
    if category in ("Cn", "Co"):
        flags.append("unassignedOrPrivate")
    if unicodedata.combining(character) == VIRAMA:
        flags.append("virama")
    if unicodedata.east_asian_width(character) in ("W", "F"):
        flags.append("wide")
    if category in ("Ps", "Pi"):
        flags.append("opening")
    if category in ("Pe", "Pf"):
        flags.append("closing")
    return "{BidiClass::%s, ClusterJoin::%s, WordPart::%s, %s}" % (
        direction, cluster_join(code, category), word_part(category), " | ".join(flags) or "0")


def blocks_of(values):
    blocks, block_of = [], []
    for start in range(0, len(values), BLOCK):
        block = values[start:start + BLOCK]
        if block not in blocks:
            blocks.append(block)
        block_of.append(blocks.index(block))
    return blocks, block_of


def joined(numbers):
    return ",".join(map(str, numbers))


def main(output):
    kinds = {}
    values = [kinds.setdefault(properties(code), len(kinds)) for code in range(0x110000)]
    blocks, block_of = blocks_of(values)
    assert len(kinds) <= 256 and len(blocks) <= 256
    with open(output, "w", encoding="ascii", newline="\n") as file:
        file.write("// Made by common/make_unicode_table.py from Unicode %s.\n#pragma once\n\n" % unicodedata.unidata_version)
        file.write('#include "common/unicode_properties.h"\n\n#include <cstdint>\n\n// clang-format off\n')
        file.write("namespace unicode_table {\n")
        file.write("enum : std::uint8_t { markOrFormat = 1, unassignedOrPrivate = 2, virama = 4, wide = 8, opening = 16, "
                   "closing = 32 };\n")
        file.write("struct Properties { BidiClass bidi; ClusterJoin join; WordPart wordPart; std::uint8_t flags; };\n")
        file.write("inline constexpr Properties kinds[%d] = {\n" % len(kinds))
        file.writelines("%s,\n" % kind for kind in kinds)
        file.write("};\ninline constexpr int blockSize = %d;\n" % BLOCK)
        file.write("inline constexpr std::uint8_t blockOf[%d] = {%s};\n" % (len(block_of), joined(block_of)))
        file.write("inline constexpr std::uint8_t kindOf[%d][blockSize] = {\n" % len(blocks))
        file.writelines("{%s},\n" % joined(block) for block in blocks)
        file.write("};\n} // namespace unicode_table\n")


main(sys.argv[1])
