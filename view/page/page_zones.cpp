#include "view/page/page_zones.h"

#include "view/page/page_layouter.h"

namespace {
// Leaves that floats are expected to reach down to: a picture is as high as that many paragraphs.
constexpr int floatReach = 16;
// Of a zone. Where every paragraph has a float, such as the number of its page, one may be cut off.
constexpr int maxLeaves = 64;

bool HasFloats(const PageBoxes& boxes, PageBoxId leaf) {
    return boxes[leaf].kind == PageBoxKind::Lines && boxes[leaf].hasFloats;
}

bool HasHeight(const PageBox& leaf) {
    return leaf.kind != PageBoxKind::Lines || leaf.hasText;
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
    for (PageBoxId box = rootPageBox; box < boxes.End();) {
        if (!IsFlowLeaf(boxes[box])) {
            ++box;
            continue;
        }
        ++leaves;
        joined = HasFloats(boxes, box) ? floatReach : joined - 1;
        zone.units += UnitsIn(boxes, box);
        if (HasHeight(boxes[box])) {
            zone.lastLeaf = box;
            zone.end = boxes[box].end;
            if (joined <= 0 || leaves >= maxLeaves) {
                zones.push_back(zone);
                zone = {};
                leaves = 0;
            }
        }
        box = boxes[box].end;
    }
    if (zones.empty() || leaves > 0) zones.push_back(zone);
    zones.back().end = boxes.End();
    return zones;
}
