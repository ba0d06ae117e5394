// A paragraph style in pixels, for the reference layout.
#pragma once

#include "tests/contract/reference_view/reference_text.h"

struct ReferenceShape {
    bool rightToLeft = false, stretches = false;
    Alignment alignment = Alignment::Left;
    int firstIndent = 0, indent = 0, endIndent = 0, before = 0, after = 0;
    std::int32_t spacing = 0;
    bool multiple = false;
    std::vector<TabStop> tabStops; // as in ParagraphText
    double tabDistance = 48;

    int SlotHeight(const ReferenceSettings& settings, int natural) const;
};

ReferenceShape ReferenceShapeOf(const ReferenceSettings& settings, const ReferencePart& part);
