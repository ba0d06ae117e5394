// The shapes of the generated code page tables. Bytes below 0x80 are ASCII in every page and have
// no entry, but for `ControlLetters`.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

constexpr char16_t undefinedUnit = u'\uFFFD';
constexpr char16_t leadUnit = 0; // in a table of single bytes: the first of two

struct SingleBytePage {
    int page;
    char16_t units[128];
};

// Letters in place of control characters, for bytes below 0x20; 0: the control character.
struct ControlLetters {
    int page;
    char16_t units[32];
};

// Tables of pairs are a tenth of the Windows program unpacked, and few readers need one: so each is
// unpacked when it is first asked for. A packed unit is mostly told by its distance from the one
// before, which is no undefined one, in bytes:
//   00 to 3F  2 to 65 more than that
//   40 to 5F  1 to 32 units, each one more than the one before
//   60 to 67  1 to 8 undefined ones
//   68 to 6F  1 to 2048 undefined ones, with the next byte as the lower part
//   70 to EF  a distance from -4000 on, with the next byte as the lower part
//   F0        the next two bytes, the higher one first
std::vector<char16_t> UnpackUnits(const std::uint8_t* packed, std::size_t size);

using Units = const char16_t*();

template <const auto& packed>
const char16_t* Unpacked() {
    static const std::vector<char16_t> units = UnpackUnits(packed, sizeof packed);
    return units.data();
}

// Sequences longer than two bytes: a lead byte of their own, a byte for the plane when there are
// several (else `firstPlane` is 0), row and cell from 0xA1 on.
constexpr int eucRows = 94;
struct LongSequences {
    std::uint8_t lead;
    std::uint8_t firstPlane;
    std::uint8_t planes;
    Units* units;
};

struct DoubleBytePage {
    int page;
    char16_t units[128]; // of the bytes from 0x80 on, `leadUnit` for a lead byte
    Units* pairs;        // a row of `trailCount` units for each byte from `firstLead` on
    std::uint8_t firstLead;
    std::uint8_t firstTrail;
    std::uint8_t trailCount;
    const LongSequences* longer;
};

// Four-byte sequences of GB18030, numbered in their order: from `index` on they are the characters
// from `unit` on.
struct FourByteRange {
    std::uint16_t index;
    char16_t unit;
};
