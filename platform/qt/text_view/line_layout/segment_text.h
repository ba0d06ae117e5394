// A paragraph's text as QTextLayout gets it, so that it breaks and draws lines as they are wanted.
#pragma once

#include "platform/line_layout.h"

#include <QString>

// Represents a box; transparent, and widened to the box by letter spacing. It is neutral in
// direction, and a line may break on both sides of it.
constexpr char16_t boxPlaceholder = u'\u2014';

// As many units as the paragraph has.
QString SegmentText(const ParagraphText& paragraph);
