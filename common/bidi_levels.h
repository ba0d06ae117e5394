// The order in which text of both directions is seen: the Unicode Bidirectional Algorithm (Unicode
// Standard Annex 9) with its embeddings, overrides and isolates, but for the pairing of brackets
// (rule N0): a bracket between two directions takes the paragraph's.
#pragma once

#include "common/geometry.h"
#include "common/unicode_properties.h"

#include <string_view>
#include <vector>

// For each unit of a paragraph, before its lines are known.
std::vector<BidiLevel> BidiLevels(std::u16string_view text, bool rightToLeft);

// Tabs, and spaces in front of a tab or a line's end, take the paragraph's level (rule L1). From
// `start` to `end`, which is the line's.
void ResetLineLevels(std::u16string_view text, TextPos start, TextPos end, bool rightToLeft,
                     std::vector<BidiLevel>& levels);

// From left to right: the indices of what has these levels (rule L2).
std::vector<std::size_t> VisualOrder(const std::vector<BidiLevel>& levels);
