// The colours that a text is painted with.
#pragma once

#include "view/block_layout.h"

struct TextPaint {
    const LayoutContext& context;
    Color text = 0; // for text without a colour of its own
    Color selectionText = 0, selectionBackground = 0;
    TextPos selectionStart = 0, selectionEnd = 0;

    Color Line() const;           // of borders without a colour of their own
    Color MissingPicture() const; // of the frame in its place
};
