// What Unicode says of a character, the same on every system.
#pragma once

#include <cstdint>

bool IsMarkOrFormat(char32_t);        // Mn, Mc, Me and Cf: nothing stands for it in the line
bool IsUnassignedOrPrivate(char32_t); // Cn and Co: no font is sure to have it
bool IsVirama(char32_t);              // joins the consonants around it in scripts of India
bool IsWide(char32_t);                // of East Asian text, as wide as two digits
bool IsOpening(char32_t);             // opening brackets and quotation marks
bool IsClosing(char32_t);
// Spaces, tabs and breaks of any kind, those that a line does not break at, too.
bool IsSpaceCharacter(char16_t);

enum class Direction { Neutral, LeftToRight, RightToLeft };
Direction StrongDirection(char32_t); // neutral: takes that of what is around it

// Unicode Standard Annex 9, by its own names. Unassigned characters are L.
enum class BidiClass : std::uint8_t {
    // clang-format off
    L, R, AL, EN, ES, ET, AN, CS, NSM, BN, B, S, WS, ON, LRE, LRO, RLE, RLO, PDF, LRI, RLI, FSI, PDI,
    // clang-format on
};
BidiClass BidiClassOf(char32_t);

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
ClusterJoin ClusterJoinOf(char32_t);

enum class WordPart : std::uint8_t { None, Letter, Number, Mark };
WordPart WordPartOf(char32_t);
