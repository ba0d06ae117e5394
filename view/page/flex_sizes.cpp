#include "view/page/flex_sizes.h"

#include <algorithm>

namespace {
double Hypothetical(const FlexSize& item) {
    return std::max(item.min, std::min(item.max, item.basis));
}

double WidthOf(const std::vector<FlexPlace>& places, double gap) {
    double width = gap * double(places.size() - 1);
    for (const FlexPlace& place : places)
        width += place.width;
    return width;
}

// Shares what is left, or missing, between the items that are not at their limit yet.
void Share(const std::vector<FlexSize>& items, double width, double gap, bool grows,
           std::vector<FlexPlace>& places) {
    std::vector<bool> fixed(items.size(), false);
    for (std::size_t round = 0; round < items.size(); ++round) {
        const double free = width - WidthOf(places, gap);
        double weights = 0;
        for (std::size_t i = 0; i < items.size(); ++i)
            if (!fixed[i]) weights += grows ? items[i].grow : items[i].shrink;
        if (weights <= 0 || (grows ? free <= 0 : free >= 0)) return;
        // Weights below one in all leave a part of the room free.
        const double all = grows ? std::max(1.0, weights) : weights;
        bool limited = false;
        for (std::size_t i = 0; i < items.size(); ++i) {
            if (fixed[i]) continue;
            const double share = free * (grows ? items[i].grow : items[i].shrink) / all;
            const double wanted = places[i].width + share;
            places[i].width = std::max(items[i].min, std::min(items[i].max, wanted));
            fixed[i] = places[i].width != wanted;
            limited = limited || fixed[i];
        }
        if (!limited) return;
    }
}

// Before the first item and between two, of what is free.
void Justify(CssJustifyContent justify, double free, std::size_t count, double& left,
             double& between) {
    const double items = double(count);
    switch (justify) {
    case CssJustifyContent::Start: return;
    case CssJustifyContent::End: left = free; return;
    case CssJustifyContent::Center: left = free / 2; return;
    case CssJustifyContent::SpaceBetween:
        if (count > 1) between = free / (items - 1);
        return;
    case CssJustifyContent::SpaceAround:
        between = free / items;
        left = between / 2;
        return;
    case CssJustifyContent::SpaceEvenly: left = between = free / (items + 1); return;
    }
}
} // namespace

std::vector<FlexSpan> FlexLines(const std::vector<FlexSize>& items, double width, double gap,
                                bool wraps) {
    double narrowest = -gap;
    for (const FlexSize& item : items)
        narrowest += item.min + gap;
    const bool oneByOne = !wraps && narrowest > width;
    std::vector<FlexSpan> lines;
    double taken = 0;
    for (std::size_t i = 0; i < items.size(); ++i) {
        const double own = Hypothetical(items[i]);
        const bool fits = !lines.empty() && (!wraps || taken + gap + own <= width);
        if (fits && !oneByOne) {
            lines.back().end = i + 1;
            taken += gap + own;
        } else {
            lines.push_back({i, i + 1});
            taken = own;
        }
    }
    return lines;
}

std::vector<FlexPlace> FlexPlaces(const std::vector<FlexSize>& items, double width, double gap,
                                  CssJustifyContent justify) {
    std::vector<FlexPlace> places(items.size());
    double all = gap * (double(items.size()) - 1);
    for (const FlexSize& item : items)
        all += Hypothetical(item);
    const bool grows = all <= width;
    int autoMargins = 0;
    for (std::size_t i = 0; i < items.size(); ++i) {
        // What grows begins at its basis, which its limits may have raised.
        places[i].width = Hypothetical(items[i]);
        autoMargins += items[i].autoLeft + items[i].autoRight;
    }
    Share(items, width, gap, grows, places);
    const double free = std::max(0.0, width - WidthOf(places, gap));
    double left = 0, between = 0;
    if (autoMargins == 0) Justify(justify, free, items.size(), left, between);
    for (std::size_t i = 0; i < items.size(); ++i) {
        const double margin = autoMargins > 0 ? free / autoMargins : 0;
        if (items[i].autoLeft) left += margin;
        places[i].left = left;
        left += places[i].width + between + gap;
        if (items[i].autoRight) left += margin;
    }
    return places;
}
