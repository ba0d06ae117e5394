// Line ends of a plain text.
#pragma once

#include <string>

// "\r\n", "\n" and "\r" each become one u'\n', in place and in one pass.
void UnifyLineEnds(std::u16string& text);
