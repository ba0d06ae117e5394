// How a text looks, as assistive technology is told it.
#pragma once

#include "platform/qt/text_view/caret_moves.h"

#include <QString>

struct ToldAttributes {
    TextSpan span; // in which all is the same; never beyond the paragraph
    // In the notation of IAccessible2, "name:value;name:value;".
    QString text;
};

ToldAttributes AttributesAt(TextLayouts& layouts, TextPos position, const QPalette& palette);
