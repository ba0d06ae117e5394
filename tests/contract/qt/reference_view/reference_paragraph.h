// The reference layout of one paragraph, or of a piece of an over-long one.
#pragma once

#include "tests/contract/qt/reference_view/reference_text.h"

struct ReferencePart {
    TextPos start = 0, end = 0;
    bool first = true, last = true; // of its paragraph
    int breakWidth = 1, alignWidth = 1;
};

struct ReferenceSlot {
    int start = 0; // in the layout
    int top = 0, height = 0;
};

// From `start` to `end` of the text; ends before a line with a tab that is not the first, because
// Qt ignores tab stops there.
struct ReferenceLayout {
    TextPos start = 0, end = 0;
    bool isContinued = false, rightToLeft = false;
    QPointF shift;
    int height = 0;
    std::vector<ReferenceSlot> places;
    std::vector<QFont> fonts; // pinned for the text
    std::unique_ptr<QTextLayout> text;
};

std::vector<ReferenceLayout> LayOutReferencePart(const ReferenceSettings& settings,
                                                 const ReferencePart& part);
