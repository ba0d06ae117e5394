// The state that the steps of the bidirectional algorithm share; for bidi_*.cpp.
#pragma once

#include "common/geometry.h"
#include "common/unicode_properties.h"

#include <vector>

struct BidiText {
    std::vector<BidiClass> classes; // of each unit, as the steps before have left it
    std::vector<BidiLevel> levels;  // by the controls alone
    std::vector<BidiLevel> resolved;
    std::vector<TextPos> matching; // of an isolate's start the place of its end, or -1
    BidiLevel base = 0;

    BidiClass& Class(TextPos at) { return classes[std::size_t(at)]; }
    BidiClass Class(TextPos at) const { return classes[std::size_t(at)]; }
    BidiLevel& Level(TextPos at) { return levels[std::size_t(at)]; }
    BidiLevel Level(TextPos at) const { return levels[std::size_t(at)]; }
    TextPos Size() const { return TextPos(classes.size()); }
};

constexpr bool IsIsolateStart(BidiClass bidi) {
    return bidi == BidiClass::LRI || bidi == BidiClass::RLI || bidi == BidiClass::FSI;
}

// Rules X1 to X8, and X9: embeddings and their ends become BN.
void ApplyDirectionControls(BidiText&);
// Rules W1 to W7, N1, N2, I1 and I2, for the units of one isolating run sequence.
void ResolveSequence(BidiText&, const std::vector<TextPos>& sequence);
