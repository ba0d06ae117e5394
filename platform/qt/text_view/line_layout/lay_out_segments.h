// Lays out a paragraph in segments.
#pragma once

#include "platform/qt/text_view/line_layout/layout_segment.h"

std::vector<LayoutSegment> LayOutSegments(const ParagraphText& paragraph, QPaintDevice& device);
