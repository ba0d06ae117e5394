// How wide the items of a row are that share its width, and where they stand (CSS Flexible Box
// Layout 1, 9.3 to 9.5). Lengths are device pixels, of margin boxes.
#pragma once

#include "formats/css/css_style_values.h"
#include "view/page/page_box.h"

#include <cstddef>
#include <vector>

struct FlexSize {
    double basis = 0, min = 0, max = 0;
    double grow = 0, shrink = 0;              // weights
    bool autoLeft = false, autoRight = false; // margins
};

// Items from one up to another.
struct FlexSpan {
    std::size_t start = 0, end = 0;
};

struct FlexPlace {
    double left = 0, width = 0;
};

struct ItemPlace {
    PageBoxId item = noPageBox;
    FlexPlace place;
};

// Which items stand beside each other. Without `wraps` all of them, if their narrowest fit; else
// each is by itself.
std::vector<FlexSpan> FlexLines(const std::vector<FlexSize>& items, double width, double gap,
                                bool wraps);
// Of one of these rows.
std::vector<FlexPlace> FlexPlaces(const std::vector<FlexSize>& items, double width, double gap,
                                  CssJustifyContent justify);
