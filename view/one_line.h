// A text on one line, outside of any paragraph: labels, heads and feet of pages.
#pragma once

#include "platform/line_layout.h"

#include <memory>
#include <string>

// Of a text that is wider what fits, with an ellipsis.
std::unique_ptr<TextLines> LayOutOneLine(LineLayout& lines, const StyleHandle& style,
                                         const std::u16string& text, int width);
