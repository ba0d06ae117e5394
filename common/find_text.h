// Finding a stretch of text.
#pragma once

#include "platform/text_view.h"

#include <string_view>

// The first place at or after `start` where `what` stands whole in `text`; npos when there is none,
// and for an empty `what`.
std::size_t FindText(std::u16string_view text, std::u16string_view what, std::size_t start,
                     FindOptions);
