// How much is drawn of a drawing: short ones may repeat their parts billions of times.
#pragma once

#include "formats/html/html_tree.h"

// Elements as they are drawn; more than `maxSvgShapes` also for parts that repeat themselves.
std::uint64_t ShapesOfSvg(const HtmlTree& tree, HtmlNodeId svg);
