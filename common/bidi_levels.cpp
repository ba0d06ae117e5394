#include "common/bidi_levels.h"

#include "common/bidi_classes.h"
#include "common/text_characters.h"
#include "common/unicode.h"

#include <algorithm>
#include <numeric>

namespace {
BidiText Classify(std::u16string_view text, bool rightToLeft) {
    BidiText bidi;
    bidi.base = rightToLeft ? 1 : 0;
    bidi.classes.resize(text.size());
    ForEachCharacter(text, [&](TextPos at, char32_t character) {
        std::fill_n(bidi.classes.begin() + at, UnitsOf(character), BidiClassOf(character));
    });
    bidi.levels.assign(text.size(), bidi.base);
    bidi.matching.assign(text.size(), -1);
    std::vector<TextPos> open;
    for (TextPos at = 0; at < bidi.Size(); ++at) {
        if (IsIsolateStart(bidi.Class(at))) open.push_back(at);
        if (bidi.Class(at) != BidiClass::PDI || open.empty()) continue;
        bidi.matching[std::size_t(open.back())] = at;
        open.pop_back();
    }
    return bidi;
}

// The stretches of one level, without what rule X9 removes.
std::vector<std::vector<TextPos>> LevelRuns(const BidiText& bidi) {
    std::vector<std::vector<TextPos>> runs;
    for (TextPos at = 0; at < bidi.Size(); ++at) {
        if (bidi.Class(at) == BidiClass::BN) continue;
        if (runs.empty() || bidi.Level(runs.back().back()) != bidi.Level(at)) runs.emplace_back();
        runs.back().push_back(at);
    }
    return runs;
}

// Joins each run that ends with the start of an isolate to the one that continues after it (BD13).
std::vector<std::vector<TextPos>> RunSequences(const BidiText& bidi) {
    std::vector<std::vector<TextPos>> sequences;
    std::vector<std::size_t> sequenceAfter(bidi.classes.size() + 1, 0); // by an isolate's end
    for (auto& run : LevelRuns(bidi)) {
        const std::size_t joined = sequenceAfter[std::size_t(run.front())];
        const std::size_t index = joined > 0 ? joined - 1 : sequences.size();
        if (joined == 0) sequences.emplace_back();
        sequences[index].insert(sequences[index].end(), run.begin(), run.end());
        const TextPos end = bidi.matching[std::size_t(run.back())];
        if (end >= 0) sequenceAfter[std::size_t(end)] = index + 1;
    }
    return sequences;
}

// Nothing in it can have another level than 0 in a paragraph from left to right.
bool IsLeftToRight(const BidiText& bidi) {
    return std::none_of(bidi.classes.begin(), bidi.classes.end(), [](BidiClass each) {
        return each == BidiClass::R || each == BidiClass::AL || each == BidiClass::AN ||
               each >= BidiClass::LRE;
    });
}

bool IsSpaceOrControl(BidiClass bidi) {
    return bidi == BidiClass::WS || bidi >= BidiClass::LRE || bidi == BidiClass::BN;
}
} // namespace

std::vector<BidiLevel> BidiLevels(std::u16string_view text, bool rightToLeft) {
    BidiText bidi = Classify(text, rightToLeft);
    if (!rightToLeft && IsLeftToRight(bidi)) return bidi.levels;
    ApplyDirectionControls(bidi);
    bidi.resolved = bidi.levels;
    for (const auto& sequence : RunSequences(bidi))
        ResolveSequence(bidi, sequence);
    for (TextPos at = 0; at < bidi.Size(); ++at) // what was removed stays with what is before it
        if (bidi.Class(at) == BidiClass::BN)
            bidi.resolved[std::size_t(at)] =
                at > 0 ? bidi.resolved[std::size_t(at - 1)] : bidi.base;
    return bidi.resolved;
}

void ResetLineLevels(std::u16string_view text, TextPos start, TextPos end, bool rightToLeft,
                     std::vector<BidiLevel>& levels) {
    bool resets = true; // after is a tab or the line's end
    for (TextPos at = end - 1; at >= start; --at) {
        const BidiClass bidi = BidiClassOf(text[std::size_t(at)]);
        const bool separates = bidi == BidiClass::S || bidi == BidiClass::B;
        resets = separates || (resets && IsSpaceOrControl(bidi));
        if (resets) levels[std::size_t(at)] = rightToLeft ? 1 : 0;
    }
}

std::vector<std::size_t> VisualOrder(const std::vector<BidiLevel>& levels) {
    std::vector<std::size_t> order(levels.size());
    std::iota(order.begin(), order.end(), std::size_t(0));
    if (levels.empty()) return order;
    for (int level = *std::max_element(levels.begin(), levels.end()); level > 0; --level) {
        for (std::size_t from = 0; from < levels.size();) {
            std::size_t to = from;
            while (to < levels.size() && levels[to] >= level)
                ++to;
            std::reverse(order.begin() + std::ptrdiff_t(from), order.begin() + std::ptrdiff_t(to));
            from = std::max(to, from + 1);
        }
    }
    return order;
}
