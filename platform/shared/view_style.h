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
};
