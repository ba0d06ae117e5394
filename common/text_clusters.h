// Characters as a reader counts them: letters with their marks, pairs of regional indicators,
// joined pictographs, syllables of Hangul (extended grapheme clusters of Unicode Standard Annex
// 29).
#pragma once

#include "common/geometry.h"

#include <string_view>
#include <vector>

// Where each starts, and the text's length at the end: 0 for an empty text.
std::vector<TextPos> ClusterStarts(std::u16string_view text);
