// The fonts and colours of a segment's text as QTextLayout gets them.
#pragma once

#include "platform/qt/text_view/line_layout/layout_segment.h"

#include <QTextCharFormat>

const QTextCharFormat& FormatOf(const StyledRun& run);
const QTextCharFormat& FormatAt(const ParagraphText& paragraph, TextPos position);
void SetFormats(const ParagraphText& paragraph, LayoutSegment& segment, QPaintDevice& device);
