// A text that is too wide, with "\u2026" in its middle.
#pragma once

#include <functional>
#include <string>
#include <string_view>

// The longest one within `maxWidth` by `width`; the text itself where it is not wider. Beginning
// and end are kept alike, and pairs of surrogates whole.
std::u16string ElidedInMiddle(std::u16string_view text, int maxWidth,
                              const std::function<int(std::u16string_view)>& width);
