// One paragraph, or a piece of an over-long one, of a text that is laid out as a whole.
#pragma once

#include "tests/contract/qt/reference_view/reference_text.h"

struct WholePart {
    TextPos start = 0, end = 0;
    bool first = true, last = true; // of its paragraph
    int breakWidth = 1, alignWidth = 1;
};

struct WholeSlot {
    int start = 0; // in the layout
    int top = 0, height = 0;
};

// From `start` to `end` of the text; its lines up to the first one that has a tab and is not the
// layout's own first: there Qt loses tab stops.
struct WholeLaidOut {
    TextPos start = 0, end = 0;
    bool goesOn = false, rightToLeft = false;
    QPointF shift;
    int height = 0;
    std::vector<WholeSlot> places;
    std::vector<QFont> fonts; // held for the text
    std::unique_ptr<QTextLayout> text;
};

std::vector<WholeLaidOut> LayOutWholePart(const WholeSetting& setting, const WholePart& part);
