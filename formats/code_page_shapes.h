// The shapes of the generated code page tables. Bytes below 0x80 are ASCII in every page and have
// no entry.
#pragma once

#include <cstdint>

constexpr char16_t undefinedUnit = u'\uFFFD';
constexpr char16_t leadUnit = 0; // among single bytes: the byte begins a pair

struct SingleBytePage {
    int page;
    char16_t units[128];
};

struct DoubleBytePage {
    int page;
    char16_t units[128];   // of the bytes from 0x80 on, `leadUnit` for a lead byte
    const char16_t* pairs; // a row of `trailCount` units for each byte from `firstLead` on
    std::uint8_t firstLead;
    std::uint8_t firstTrail;
    std::uint8_t trailCount;
};

// Four-byte sequences of GB18030, numbered in their order: from `index` on they are the characters
// from `unit` on.
struct FourByteRange {
    std::uint16_t index;
    char16_t unit;
};
