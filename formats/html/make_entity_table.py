"""Writes the table of named character references.

Usage: make_entity_table.py OUTPUT. The names are those of the HTML Standard's section "Named character references", as
Python's module html.entities has them (its dictionary html5 is made from the standard's entities.json).
"""

import sys
from html.entities import html5

HEAD = """\
// Made by formats/html/make_entity_table.py from the HTML Standard's list of named character
// references.
#pragma once

#include <cstdint>

// A name ends where the next one begins. The second unit of a single one is 0.
struct HtmlEntity {
    std::uint16_t nameBegin;
    char16_t units[2];
};

// clang-format off
"""


def units(text):
    encoded = text.encode("utf-16-le")
    return [int.from_bytes(encoded[i:i + 2], "little") for i in range(0, len(encoded), 2)]


def main(output):
    names = sorted(html5)  # by ASCII, for a search that narrows a range
    rows, begin = [], 0
    for name in names:
        value = units(html5[name])
        assert 1 <= len(value) <= 2 and name.isascii()
        rows.append("{%d,{%d,%d}}" % (begin, value[0], value[1] if len(value) == 2 else 0))
        begin += len(name)
    assert begin < 0x10000
    rows.append("{%d,{0,0}}" % begin)
    text = "".join(names)
    with open(output, "w", encoding="ascii", newline="\n") as file:
        file.write(HEAD)
        file.write("inline constexpr char htmlEntityNames[] =\n")
        file.writelines('"%s"\n' % text[i:i + 116] for i in range(0, len(text), 116))
        file.write(";\ninline constexpr int htmlEntityCount = %d;\n" % len(names))
        file.write("inline constexpr HtmlEntity htmlEntities[htmlEntityCount + 1] = {\n")
        file.writelines(",".join(rows[i:i + 6]) + ",\n" for i in range(0, len(rows), 6))
        file.write("};\n// clang-format on\n")


main(sys.argv[1])
