// What part of a laid-out paragraph a selection covers.
#pragma once

#include "platform/qt/text_view/layout/paragraph_layout.h"

#include <QRegion>

// In the paragraph's own coordinates, no further than `clip`. A line is covered from its top to its
// bottom, the space around paragraphs is not; a paragraph break is a blank behind the last line.
QRegion SelectedRegion(const ParagraphLayout& paragraph, TextPos start, TextPos end,
                       const QRect& clip);
