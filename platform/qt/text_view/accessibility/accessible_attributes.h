// The formatting of a text as accessible attributes.
#pragma once

#include "view/readable_pane.h"

#include <QString>

struct AccessibleAttributes {
    TextSpan span; // where all attributes are the same; within one paragraph
    // In IAccessible2 notation, "name:value;name:value;".
    QString text;
};

AccessibleAttributes AttributesAt(ReadablePane& pane, TextPos position);
