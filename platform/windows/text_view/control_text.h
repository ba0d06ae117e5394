// Plain text as the rich-edit control takes it in.
#pragma once

#include <string>
#include <string_view>

// A text of "\n" breaks, unit for unit, in what the control keeps as one unit each: it would drop,
// join or give a meaning of its own to some.
std::u16string ToControlText(std::u16string_view text);
