// The properties of characters that common/unicode.h tells, and its table holds.
#pragma once

#include <cstdint>

enum class Direction { Neutral, LeftToRight, RightToLeft };

// Unicode Standard Annex 9, by its own names. Unassigned characters are L.
enum class BidiClass : std::uint8_t {
    // clang-format off
    L, R, AL, EN, ES, ET, AN, CS, NSM, BN, B, S, WS, ON, LRE, LRO, RLE, RLO, PDF, LRI, RLI, FSI, PDI,
    // clang-format on
};
using BidiLevel = std::uint8_t; // odd ones are right to left

// How it joins its neighbours into one character of a reader (a grapheme cluster).
enum class ClusterJoin : std::uint8_t {
    Other,
    Control,   // joins nothing
    Extending, // the one before: marks
    Joiner,    // the one before, and pictographs around it
    Prepended, // the one after
    Pictograph,
    RegionalIndicator, // in pairs: flags
    LeadingJamo,
    VowelJamo,
    TrailingJamo,
    OpenSyllable, // of Hangul, without a trailing consonant
    ClosedSyllable,
};

enum class WordPart : std::uint8_t { None, Letter, Number, Mark };
