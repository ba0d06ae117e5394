// The reference layout of one paragraph, or of a piece of an over-long one.
#pragma once

#include "tests/contract/reference_view/reference_text.h"

struct ReferenceSlot {
    int start = 0; // in the layout
    int top = 0, height = 0;
    int left = 0, baseline = 0;
};

struct ReferenceLayout {
    TextPos start = 0, end = 0;
    bool rightToLeft = false;
    int height = 0;
    std::vector<ReferenceSlot> places;
    std::unique_ptr<TextLines> text;
};

ReferenceLayout LayOutReferencePart(const ReferenceSettings& settings, const ReferencePart& part);
