// The region of a laid-out paragraph that a selection covers.
#pragma once

#include "platform/qt/text_view/layout/paragraph_layout.h"

#include <QRegion>

// In the coordinates of the paragraph, within `clip`. Covers the full height of a line, but not the
// space around paragraphs; a selected paragraph break shows as a space behind the last line.
QRegion SelectedRegion(const ParagraphLayout& paragraph, TextPos start, TextPos end,
                       const QRect& clip);
