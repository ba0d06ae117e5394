// Texts within a value of the data file, between which stands "|".
#pragma once

#include <string>
#include <string_view>

// Blanks at the ends of a value would not be part of it, so those of a text never are as they are.
enum class StoredBlanks { AsReferences, InnerAsTheyAre };

// With references (see common/char_refs.h) for "|", for what a line cannot hold, and for quotes,
// which around the value would not be part of it. `DecodeCharRefs` reads it.
std::u16string StoredText(std::u16string_view text, StoredBlanks);
