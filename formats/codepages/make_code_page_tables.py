"""Writes the C++ tables of the code pages from Python's codecs.

Usage: make_code_page_tables.py OUTPUT. Below 0x80 every page is ASCII, so the tables begin at 0x80. Charsets that Python has
no codec for are read from iconv_tables.txt.
"""

import os
import sys
import unicodedata

UNDEFINED = 0xFFFD
LEAD = 0  # in a table of single bytes: this one begins a pair

SINGLE_BYTE = {
    **{page: "cp%d" % page for page in (437, 720, 737, 775, 850, 852, 855, 857, 858, *range(860, 867), 869, 874)},
    **{page: "cp%d" % page for page in (1125, *range(1250, 1259))},
    10000: "mac_roman", 10006: "mac_greek", 10007: "mac_cyrillic", 10029: "mac_latin2", 10081: "mac_turkish",
    10010: "mac_romanian", 10079: "mac_iceland", 10082: "mac_croatian",
    70006: "kz1048", 70007: "ptcp154",  # numbers of our own
    20866: "koi8_r", 21866: "koi8_u",
    **{28590 + part: "iso8859_%d" % part for part in range(1, 17) if part != 12},  # there is no part 12
}
VISCII, TCVN, MIK = 70001, 70002, 70005  # numbers of our own

# The Bulgarian letters of DOS in alphabetical order, then signs; from 0xE0 on as 437.
MIK_SIGNS = "└┴┬├─┼╣║╚╔╩╦╠═╬┐░▒▓│┤№§╗╝┘┌█▄▌▐▀"

FROM_ICONV = os.path.join(os.path.dirname(os.path.abspath(__file__)), "iconv_tables.txt")

# What Windows reads where Python's codec has a hole.
WINDOWS_ADDITIONS = {1255: {0xCA: 0x05BA}}

MAC_JAPANESE = {0x80: 0x5C, 0xA0: 0xA0, 0xFD: 0xA9, 0xFE: 0x2122, 0xFF: 0x2026}

# Page: codecs (a later one fills the holes of those before), lead bytes, first and last trail byte.
# The Hong Kong supplement has what the common additions to page 950 have: kana, Cyrillic, circled numbers.
DOUBLE_BYTE = {
    932: (("cp932",), [*range(0x81, 0xA0), *range(0xE0, 0xFD)], 0x40, 0xFC),
    936: (("gb18030",), range(0x81, 0xFF), 0x40, 0xFE),
    949: (("cp949",), range(0x81, 0xFF), 0x41, 0xFE),
    950: (("cp950", "big5hkscs"), range(0x81, 0xFF), 0x40, 0xFE),
    1361: (("johab",), [*range(0x84, 0xD4), *range(0xD8, 0xDF), *range(0xE0, 0xFA)], 0x31, 0xFE),
}
ETEN_AREA = range(0xC6A1, 0xC8FF)  # of page 950: here Python has the kana at places that no Windows file uses
EUC_JP, EUC_TW = 51932, 51950
EUC_LEADS = range(0xA1, 0xFF)
NEC_ROW = 0xAD  # of EUC-JP: circled numbers and the like, which all programs read but the standard does not have
EURO_OF_936 = {0x80: 0x20AC}
BMP_FOUR_BYTES = 39420  # how many four-byte sequences of GB18030 stand for the BMP

# Characters that had a private number in the first GB18030, which Python keeps, and have one of their own now.
GB18030_CHANGES = {
    0xA8BC: 0x1E3F,
    0xA6D9: 0xFE10, 0xA6DA: 0xFE12, 0xA6DB: 0xFE11, 0xA6DC: 0xFE13, 0xA6DD: 0xFE14, 0xA6DE: 0xFE15,
    0xA6DF: 0xFE16, 0xA6EC: 0xFE17, 0xA6ED: 0xFE18, 0xA6F3: 0xFE19,
    0xFE59: 0x9FB4, 0xFE61: 0x9FB5, 0xFE66: 0x9FB6, 0xFE67: 0x9FB7, 0xFE6D: 0x9FB8, 0xFE7E: 0x9FB9,
    0xFE90: 0x9FBA, 0xFEA0: 0x9FBB,
}


def one_unit(sequence, codecs):
    """The character of a byte sequence, UNDEFINED unless it is a single one of the BMP."""
    for codec in codecs:
        try:
            text = sequence.decode(codec)
        except UnicodeDecodeError:
            continue
        if len(text) == 1 and ord(text) <= 0xFFFF:
            return ord(text)
    return UNDEFINED


def pair_unit(page, codecs, pair):
    code = int.from_bytes(pair, "big")
    if page == 936 and code in GB18030_CHANGES:
        return GB18030_CHANGES[code]
    if page == 950 and code in ETEN_AREA:
        codecs = codecs[::-1]
    return one_unit(pair, codecs)


def single_units(codecs, leads=(), additions=None):
    additions = additions or {}
    return [
        LEAD if byte in leads else additions.get(byte) or one_unit(bytes([byte]), codecs)
        for byte in range(0x80, 0x100)
    ]


def numbers(values):
    return ",".join(map(str, values))


def packed(units):
    """As code_page_shapes.h says."""
    def count(is_one, most):
        length = 0
        while length < most and at + length < len(units) and is_one(units[at + length], length):
            length += 1
        return length

    result, last, at = [], 0, 0
    while at < len(units):
        undefined = count(lambda unit, _: unit == UNDEFINED, 2048)
        following = count(lambda unit, before: unit == last + 1 + before, 32)
        distance = units[at] - last
        if undefined:
            result += [0x5F + undefined] if undefined <= 8 else [0x68 + (undefined - 1) // 256, (undefined - 1) % 256]
            at += undefined
            continue
        if following:
            result += [0x3F + following]
        elif 2 <= distance <= 65:
            result += [distance - 2]
        elif -0x4000 <= distance < 0x4000:
            result += [0x70 + (distance + 0x4000) // 256, (distance + 0x4000) % 256]
        else:
            result += [0xF0, units[at] // 256, units[at] % 256]
        at += max(1, following)
        last = units[at - 1]
    return result


def write_packed(file, name, unit_rows):
    file.write("inline constexpr std::uint8_t %s[] = {\n" % name)
    file.write(numbers(packed([unit for row in unit_rows for unit in row])))
    file.write("\n};\n")


def iconv_rows():
    """Charset and the bytes before the last one: the units from the first last byte on."""
    rows = {}
    with open(FROM_ICONV, encoding="utf-8", newline="\n") as file:
        for line in file.read().split("\n")[:-1]:
            charset, before, first, text = line.split(" ", 3)
            rows[charset, "" if before == "-" else before, int(first, 16)] = [ord(c) for c in text]
    return rows


def write_single_byte(file, rows):
    pages = {page: single_units((codec,), additions=WINDOWS_ADDITIONS.get(page)) for page, codec in SINGLE_BYTE.items()}
    pages[VISCII] = rows["VISCII", "", 0x80]
    pages[TCVN] = rows["TCVN", "", 0x80]
    pages[MIK] = [*range(0x410, 0x450), *map(ord, MIK_SIGNS), *pages[437][0x60:]]
    file.write("inline constexpr SingleBytePage singleBytePages[] = {\n")
    for page, units in sorted(pages.items()):
        file.write("{%d, {%s}},\n" % (page, numbers(units)))
    file.write("};\n")
    file.write("inline constexpr ControlLetters controlLetters[] = {\n")
    for page, charset in ((VISCII, "VISCII"), (TCVN, "TCVN")):
        units = [0 if unit == UNDEFINED else unit for unit in rows[charset, "", 0]]
        file.write("{%d, {%s}},\n" % (page, numbers(units)))
    file.write("};\n")


def euc_jp_unit(pair):
    unit = one_unit(pair, ("euc_jp",))
    if unit != UNDEFINED or pair[0] != NEC_ROW:
        return unit
    cell = pair[1] - 0xA1
    return one_unit(bytes([0x87, 0x40 + cell + (cell >= 0x3F)]), ("cp932",))


def write_euc(file, rows):
    trails = range(0xA1, 0xFF)
    hole = [UNDEFINED] * len(trails)

    japanese = [[euc_jp_unit(bytes([lead, trail])) for trail in trails] for lead in range(0x8E, 0xFF)]
    write_packed(file, "pairUnits%d" % EUC_JP, japanese)
    write_packed(file, "longUnits%d" % EUC_JP,
                 [[one_unit(bytes([0x8F, row, cell]), ("euc_jp",)) for cell in trails] for row in trails])
    chinese = [rows.get(("EUC-TW", "%02x" % lead, 0xA1), hole) for lead in range(0x8E, 0xFF)]
    write_packed(file, "pairUnits%d" % EUC_TW, chinese)
    write_packed(file, "longUnits%d" % EUC_TW,
                 [rows.get(("EUC-TW", "8e%02x%02x" % (plane, row), 0xA1), hole) for plane in (0xA2, 0xA3) for row in trails])
    file.write("inline constexpr LongSequences longSequences%d{0x8F, 0, 1, Unpacked<longUnits%d>};\n" % (EUC_JP, EUC_JP))
    file.write("inline constexpr LongSequences longSequences%d{0x8E, 0xA2, 2, Unpacked<longUnits%d>};\n" % (EUC_TW, EUC_TW))
    shape = "Unpacked<pairUnits%d>, 142, 161, 94, &longSequences%d"
    return [(EUC_JP, single_units(("euc_jp",), (0x8E, 0x8F, *EUC_LEADS)), shape % (EUC_JP, EUC_JP)),
            (EUC_TW, single_units(("ascii",), (0x8E, *EUC_LEADS)), shape % (EUC_TW, EUC_TW))]


def write_double_byte(file, rows):
    pages = []
    for page, (codecs, leads, first_trail, last_trail) in DOUBLE_BYTE.items():
        trails = range(first_trail, last_trail + 1)
        unit_rows = []
        for lead in range(leads[0], leads[-1] + 1):
            pairs = [bytes([lead, trail]) for trail in trails] if lead in leads else []
            unit_rows.append([pair_unit(page, codecs, pair) for pair in pairs] or [UNDEFINED] * len(trails))
        write_packed(file, "pairUnits%d" % page, unit_rows)
        additions = EURO_OF_936 if page == 936 else None
        shape = "Unpacked<pairUnits%d>, %d, %d, %d, nullptr" % (page, leads[0], first_trail, len(trails))
        pages.append((page, single_units(codecs, leads, additions), shape))
        if page == 932:
            pages.append((10001, single_units(codecs, leads, MAC_JAPANESE), shape))
    pages += write_euc(file, rows)
    file.write("inline constexpr DoubleBytePage doubleBytePages[] = {\n")
    for page, units, shape in pages:
        file.write("{%d, {%s}, %s},\n" % (page, numbers(units), shape))
    file.write("};\n")


def four_bytes(index):
    """The four-byte sequence of GB18030 with this number."""
    index, fourth = divmod(index, 10)
    index, third = divmod(index, 126)
    first, second = divmod(index, 10)
    return bytes([0x81 + first, 0x30 + second, 0x81 + third, 0x30 + fourth])


def write_four_byte_ranges(file):
    """Of the BMP: the number of the first sequence of a range, and its character; the rest of a range follows."""
    file.write("inline constexpr FourByteRange fourByteRanges[] = {\n")
    shift = None
    for index in range(BMP_FOUR_BYTES):
        unit = ord(four_bytes(index).decode("gb18030"))
        if unit - index != shift:
            file.write("{%d,%d}," % (index, unit))
            shift = unit - index
    file.write("\n};\n")
    file.write("inline constexpr unsigned bmpFourBytes = %d;\n" % BMP_FOUR_BYTES)


LAYOUT = """\
//
// singleBytePages: the units of bytes 80 to FF. controlLetters: pages with letters below 20.
// pairUnitsN: of page N, packed, a row of units for each lead byte, a unit for each trail byte.
// longUnitsN: of page N's longer sequences, packed, planes of 94 rows of 94 units.
// doubleBytePages: the pages that these belong to. fourByteRanges, bmpFourBytes: GB18030.
// U+FFFD is no character; code_page_shapes.h says the types.
"""


def main(output):
    with open(output, "w", encoding="ascii", newline="\n") as file:
        file.write("// Made by make_code_page_tables.py from the codecs of a Python with Unicode %s.\n"
                   % unicodedata.unidata_version)
        file.write(LAYOUT + "#pragma once\n\n")
        file.write('#include "formats/codepages/code_page_shapes.h"\n\n')
        file.write("// clang-format off\n")
        rows = iconv_rows()
        write_single_byte(file, rows)
        write_double_byte(file, rows)
        write_four_byte_ranges(file)


main(sys.argv[1])
