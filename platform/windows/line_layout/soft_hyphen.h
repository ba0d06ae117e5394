// The hyphen that a soft one is seen as at a line's end: in the font of the text around it.
#pragma once

#include "platform/windows/line_layout/win_fonts.h"

const WinStyle& StyleAt(const ParagraphText&, std::size_t unit);
int HyphenWidth(const ParagraphText&, std::size_t unit);
