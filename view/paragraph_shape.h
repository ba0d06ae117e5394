// A paragraph style in pixels: indents, spacing, alignment, direction, tab stops.
#pragma once

#include "view/paragraph_layout.h"

#include <string_view>

struct ParagraphShape {
    bool rightToLeft = false;
    Alignment alignment = Alignment::Left; // absolute, not relative to the direction
    // From the line's start edge, for the first and the other lines; endIndent from the opposite
    // edge.
    int firstIndent = 0, indent = 0, endIndent = 0;
    int spaceBefore = 0, spaceAfter = 0;
    int exactLine = 0, minLine = 0; // 0: none
    double lineFactor = 1;
    bool justified = false; // lines are justified where possible
    int breakWidth = 1, alignWidth = 1;
    ParagraphBox box;
    std::vector<TabStop> tabStops; // from the start edge, ascending
    double tabDistance = 1;        // between those after the last one

    int TextWidth() const; // of a line that fits the view
    int LineHeight(int natural) const;
    int AlignmentShift(int room) const; // offset of a line with `room` pixels left
};

ParagraphShape ShapeOf(const LayoutContext& context, const ParagraphPart& part,
                       std::u16string_view text);

// The size in the file, limited to `width` and to what the cache can hold.
Size PictureSize(const LayoutContext& context, const Picture& picture, int width);
