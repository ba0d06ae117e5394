// What a paragraph's style comes to in pixels: indents, spacing, alignment, direction, tab stops.
#pragma once

#include "platform/qt/text_view/layout/paragraph_layout.h"

#include <QTextOption>

struct ParagraphShape {
    bool rightToLeft = false;
    Alignment alignment = Alignment::Left; // as it is seen, whatever the direction
    // From the edge where lines begin, for the first line and the others, and from the far edge.
    int firstIndent = 0, indent = 0, farIndent = 0;
    int spaceBefore = 0, spaceAfter = 0;
    int exactLine = 0, minLine = 0; // 0: none
    double lineFactor = 1;
    bool justified = false; // lines are stretched where they can be
    int breakWidth = 1, alignWidth = 1;
    QTextOption option;

    int TextWidth() const; // of a line that keeps within the view
    int LineHeight(int natural) const;
    int AlignmentShift(int room) const; // how far a line with `room` pixels left moves right
};

ParagraphShape ShapeOf(const LayoutContext& context, const ParagraphPart& part, QStringView text);

// As the file wants it, scaled down to `width` and to what a cache can hold.
QSize PictureSize(const LayoutContext& context, const Picture& picture, int width);
