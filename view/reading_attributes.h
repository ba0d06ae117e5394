// How a text looks, for those who do not see it.
#pragma once

#include "view/text_pane.h"

struct CharacterLook {
    TextSpan span; // that has it
    TextStyle style;
    Color foreground = 0, background = 0;
};

struct ParagraphLook {
    TextSpan span;
    Alignment alignment = Alignment::Left; // absolute, not relative to the direction
    bool rightToLeft = false;
};

CharacterLook CharacterLookAt(TextPane& pane, TextPos position);
ParagraphLook ParagraphLookAt(TextPane& pane, TextPos position);
