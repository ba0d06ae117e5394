// Curves of metafiles as lines.
#pragma once

#include "formats/metafile/metafile.h"

using MetaPoints = std::vector<MetaPoint>;

struct MetaBox {
    double left = 0, top = 0, right = 0, bottom = 0;
};

MetaPoints EllipsePoints(const MetaBox& box);
// Counterclockwise as it is seen, from the ray through `start` to the one through `end`.
MetaPoints ArcPoints(const MetaBox& box, MetaPoint start, MetaPoint end);
MetaPoints PiePoints(const MetaBox& box, MetaPoint start, MetaPoint end);
MetaPoints RoundedBoxPoints(const MetaBox& box, double cornerWidth, double cornerHeight);
// A start point, then three for each curve: two of control and an end.
MetaPoints BezierPoints(const MetaPoints& points);
