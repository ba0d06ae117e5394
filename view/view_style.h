// How a text view shows its text.
#pragma once

#include "platform/text_view.h"

#include <optional>

// Properties of the view, not of the document, so that a change costs one screen and not one book.
struct ViewStyle {
    ViewFont font;
    bool fontForAll = false; // overrides the fonts of the file
    bool autoColor = false;
    Color textColor = 0x000000, backColor = 0xFFFFFF;
    std::optional<Alignment> alignment; // none: the file's
    int rightMargin = 0;                // twips; 0 wraps at the view's edge
    int maxLineLength = 0;              // average letters, of lines that wrap; 0: none
    bool unwrapped = false; // lines of a plain text that were broken for their width flow on
};

struct SelectionColors {
    Color text = 0xFFFFFF, background = 0x800000;
};

// What the desktop gives.
struct SystemStyle {
    std::u16string fontFamily;
    double fontPoints = 10;
    Color text = 0x000000, link = 0xFF0000;
    SelectionColors selection, inactiveSelection; // with the keyboard focus and without
};
