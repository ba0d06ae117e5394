// What a paragraph's style comes to where a text is laid out as a whole.
#pragma once

#include "tests/contract/qt/reference_view/reference_paragraph.h"

#include <QTextOption>

// All that a part's layout needs, from its style.
struct WholeShape {
    bool rightToLeft = false, stretches = false;
    Alignment alignment = Alignment::Left;
    int firstIndent = 0, indent = 0, farIndent = 0, before = 0, after = 0;
    std::int32_t spacing = 0;
    bool multiple = false;
    QTextOption option;

    int SlotHeight(const WholeSetting& setting, int natural) const;
};

// The direction is the paragraph's unless it is told, for a part that goes on.
WholeShape WholeShapeOf(const WholeSetting& setting, const WholePart& part, const QString& text,
                        const bool* rightToLeft);
