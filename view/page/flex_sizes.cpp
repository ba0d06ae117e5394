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

// Shares what is left, or missing, between the items that are not at their limit yet: these begin
// each round with their basis. Of limits that are met in a round only those on the side that
// changes the sum more are kept.
void Share(const std::vector<FlexSize>& items, double width, double gap, bool grows,
           std::vector<FlexPlace>& places) {
    const auto weight = [grows](const FlexSize& item) { return grows ? item.grow : item.shrink; };
    std::vector<bool> fixed(items.size());
    for (std::size_t i = 0; i < items.size(); ++i) {
        fixed[i] = weight(items[i]) <= 0 || (grows ? items[i].basis > Hypothetical(items[i])
                                                   : items[i].basis < Hypothetical(items[i]));
        if (!fixed[i]) places[i].width = items[i].basis;
    }
    const double all = width - WidthOf(places, gap);
    for (std::size_t round = 0; round < items.size(); ++round) {
        double free = width - WidthOf(places, gap);
        double weights = 0;
        for (std::size_t i = 0; i < items.size(); ++i)
            if (!fixed[i]) weights += weight(items[i]);
        // Weights below one in all leave a part of the room free.
        if (grows && weights < 1 && all * weights < free) free = all * weights;
        double change = 0;
        std::vector<double> wanted(items.size());
        for (std::size_t i = 0; i < items.size(); ++i) {
            if (fixed[i]) continue;
            wanted[i] = items[i].basis + free * weight(items[i]) / weights;
            places[i].width = std::max(items[i].min, std::min(items[i].max, wanted[i]));
            change += places[i].width - wanted[i];
        }
        bool limited = false;
        for (std::size_t i = 0; i < items.size(); ++i) {
            if (fixed[i]) continue;
            const double by = places[i].width - wanted[i];
            fixed[i] = change > 0 ? by > 0 : change < 0 ? by < 0 : true;
            if (!fixed[i]) places[i].width = items[i].basis;
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
