// Breaks a paragraph into lines, and gives each character its place in them.
#pragma once

#include "platform/none/none_clusters.h"

struct NoneLine {
    TextLine line;
    std::size_t first = 0, visibleEnd = 0, end = 0; // clusters
    std::vector<std::size_t> order;                 // the visible ones, from left to right
    double startEdge = 0;                           // the x of the paragraph's, before its indent
};

std::vector<NoneLine> BreakIntoLines(const ParagraphText&, NoneClusters&);
