#include "view/page/page_zones.h"

#include "view/page/page_layouter.h"

namespace {
// Leaves that floats are expected to reach down to: a picture is as high as that many paragraphs.
constexpr int floatReach = 16;
// Of a zone. Where every paragraph has a float, such as the number of its page, one may be cut off.
constexpr int maxLeaves = 64;
constexpr PageWeight maxZoneWeight = 64 * 1024;
// Of one in which there is no leaf to end it after.
constexpr int maxLeavesByForce = 1024;
constexpr PageWeight maxWeightByForce = 2 * maxZoneWeight;

bool HasFloats(const PageBoxes& boxes, PageBoxId leaf) {
    return boxes[leaf].kind == PageBoxKind::Lines && boxes[leaf].hasFloats;
}

bool HasHeight(const PageBox& leaf) {
    return leaf.kind == PageBoxKind::Lines ? leaf.hasText : StandsAlone(leaf);
}

std::uint32_t UnitsIn(const PageBoxes& boxes, PageBoxId leaf) {
    std::uint32_t units = 0;
    for (PageBoxId box = leaf; box < boxes[leaf].end; ++box)
        units += boxes[box].units;
    return units;
}
} // namespace

std::vector<PageZone> ZonesOf(const PageBoxes& boxes) {
    std::vector<PageZone> zones;
    PageZone zone;
    int leaves = 0, joined = 0;
    const auto end = [&](bool belowFloats) {
        zone.endsBelowFloats = belowFloats;
        zones.push_back(zone);
        zone = {};
        leaves = 0;
    };
    for (PageBoxId box = rootPageBox; box < boxes.End();) {
        zone.weight += elementWeight;
        if (!IsFlowLeaf(boxes, box)) {
            ++box;
            continue;
        }
        ++leaves;
        joined = HasFloats(boxes, box) ? floatReach : joined - 1;
        const std::uint32_t units = UnitsIn(boxes, box);
        zone.units += units;
        zone.lastLeaf = box;
        zone.end = boxes[box].end;
        zone.weight += units + elementWeight * (zone.end - box);
        if (HasHeight(boxes[box]) &&
            (joined <= 0 || leaves >= maxLeaves || zone.weight >= maxZoneWeight))
            end(false);
        else if (leaves >= maxLeavesByForce || zone.weight >= maxWeightByForce)
            end(true);
        box = boxes[box].end;
    }
    if (zones.empty() || leaves > 0) zones.push_back(zone);
    zones.back().end = boxes.End();
    zones.back().endsBelowFloats = false;
    return zones;
}
