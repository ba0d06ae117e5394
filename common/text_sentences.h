// Sentences of a text, by most of what Unicode's annex 29 says of them: an abbreviation before a
// capital ends one.
#pragma once

#include "common/geometry.h"

#include <string_view>
#include <vector>

// Each with the spaces and breaks after it. With the text's length at the end.
std::vector<TextPos> SentenceStarts(std::u16string_view text);
