"""Writes the C++ table behind FoldCase: for each BMP character how far its simple upper case is away.

Usage: make_case_table.py OUTPUT. Blocks of 256 characters; the many blocks without letter case share one.
"""

import sys
import unicodedata


def simple_upper(code):
    """The simple mapping of UnicodeData.txt; Python's upper() is the full one, which may give several."""
    character = chr(code)
    for mapped in (character.upper(), character.title()):
        if len(mapped) == 1 and ord(mapped) < 0x10000:
            return ord(mapped)
    return code


def main(output):
    blocks = []
    block_of = []
    for start in range(0, 0x10000, 256):
        shifts = [(simple_upper(code) - code) & 0xFFFF for code in range(start, start + 256)]
        if shifts not in blocks:
            blocks.append(shifts)
        block_of.append(blocks.index(shifts))
    with open(output, "w", encoding="ascii", newline="\n") as file:
        file.write("// Made by common/make_case_table.py from Unicode %s.\n#pragma once\n\n" % unicodedata.unidata_version)
        file.write("#include <cstdint>\n\n// clang-format off\n")
        file.write("inline constexpr std::uint8_t caseBlockOf[256] = {%s};\n" % ",".join(map(str, block_of)))
        file.write("inline constexpr std::uint16_t caseShift[%d][256] = {\n" % len(blocks))
        file.writelines("{%s},\n" % ",".join(map(str, shifts)) for shifts in blocks)
        file.write("};\n")


main(sys.argv[1])
