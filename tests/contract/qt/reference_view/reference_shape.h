// A paragraph style in pixels, for the reference layout.
#pragma once

#include "tests/contract/qt/reference_view/reference_paragraph.h"

#include <QTextOption>

struct ReferenceShape {
    bool rightToLeft = false, stretches = false;
    Alignment alignment = Alignment::Left;
    int firstIndent = 0, indent = 0, endIndent = 0, before = 0, after = 0;
    std::int32_t spacing = 0;
    bool multiple = false;
    QTextOption option;

    int SlotHeight(const ReferenceSettings& settings, int natural) const;
};

// `rightToLeft` is given for a part that continues a paragraph; otherwise the direction is the
// paragraph's.
ReferenceShape ReferenceShapeOf(const ReferenceSettings& settings, const ReferencePart& part,
                                const QString& text, const bool* rightToLeft);
