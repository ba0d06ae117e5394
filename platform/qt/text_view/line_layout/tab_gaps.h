// Places the tabs of a segment's first line: QTextLayout knows stops at which text begins alone.
#pragma once

#include "platform/qt/text_view/line_layout/layout_segment.h"

#include <optional>

// Whether a stop asks for more than QTextLayout does.
bool HasOwnTabs(const ParagraphText&);

// Sets the layout's tabs so that what is after them stands at their stops, and the segment's
// leaders. Returns the place in the layout of a tab that is to begin the next line instead, with
// what stands at its stop.
std::optional<int> PlaceTabs(const ParagraphText&, LayoutSegment&, QPaintDevice&);

// QTextLayout takes tab stops in the resolution of the primary screen and scales them to its
// device.
double ToTabUnits(const QPaintDevice& device, double pixels);
// From the line's start edge, where the gaps of its tabs end.
void SetTabs(QTextLayout&, const std::vector<double>& ends, const QPaintDevice& device);
