// The formats of a text, for assistive technology.
#pragma once

#include "platform/line_layout.h"
#include "view/caret_moves.h"

#include <string>

struct CharacterFormat {
    TextSpan span; // that has it
    TextStyle style;
    Color foreground = 0, background = 0;
    std::u16string link; // the address that it leads to, "" for none
};

struct ParagraphFormat {
    TextSpan span;
    Alignment alignment = Alignment::Left; // absolute, not relative to the direction
    bool rightToLeft = false;
    int headingLevel = 0; // from 1; 0: no heading
    bool isListItem = false, isNumbered = false;
};
