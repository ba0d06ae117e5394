// Plain values of the screen and of texts.
#pragma once

#include <cstdint>

// A rectangle in screen pixels.
struct Rect {
    int left = 0, top = 0, width = 0, height = 0;
    bool operator==(const Rect&) const = default;
};

// A colour in blue-green-red byte order: 0x00BBGGRR.
using Color = std::uint32_t;

// A position or a length in a text: UTF-16 code units from its start, a paragraph break counts one.
using TextPos = std::int32_t;

// A stretch of a text, in UTF-16 code units.
struct CharSpan {
    TextPos start = 0, length = 0;
    bool operator==(const CharSpan&) const = default;
};

enum class Alignment { Left = 0, Right = 1, Center = 2, Justified = 3 };

enum class CursorShape { Default, Wait }; // of the mouse
