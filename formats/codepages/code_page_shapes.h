// The shapes of the generated code page tables. Bytes below 0x80 are ASCII in every page and have
// no entry, but for `ControlLetters`.
#pragma once

#include <cstdint>

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

// Sequences longer than two bytes: a lead byte of their own, a byte for the plane when there are
// several (else `firstPlane` is 0), row and cell from 0xA1 on.
constexpr int eucRows = 94;
struct LongSequences {
    std::uint8_t lead;
    std::uint8_t firstPlane;
    std::uint8_t planes;
    const char16_t* units;
};

struct DoubleBytePage {
    int page;
    char16_t units[128];   // of the bytes from 0x80 on, `leadUnit` for a lead byte
    const char16_t* pairs; // a row of `trailCount` units for each byte from `firstLead` on
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
