#include "view/page/page_zones.h"

#include "view/page/flow_leaf.h"
#include "view/page/page_layouter.h"

#include <algorithm>
#include <utility>

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

// Beside boxes at the side, in the order of the boxes that these are placed relative to.
class TextBeside {
  public:
    explicit TextBeside(std::vector<SideBox> sides) : sides_(std::move(sides)) {
        std::ranges::stable_sort(sides_, {}, &SideBox::container);
    }
    void Begin(PageBoxId box) {
        for (; next_ < sides_.size() && sides_[next_].container <= box; ++next_)
            missing_ = std::max(missing_, sides_[next_].height);
    }
    // What stands there is no end of a zone.
    bool Has(PageBoxId leaf) const {
        return std::ranges::any_of(sides_, [&](const SideBox& side) {
            return side.leaf == leaf && side.kind != SideBox::Kind::Positioned;
        });
    }
    void AddLeaf(std::uint32_t units) {
        constexpr std::uint32_t unitsOfLine = 192; // of a wide window
        missing_ -= std::min(missing_, int(1 + units / unitsOfLine));
    }
    bool IsMissing() const { return missing_ > 0; }

  private:
    std::vector<SideBox> sides_;
    std::size_t next_ = 0;
    int missing_ = 0; // lines
};

std::uint32_t UnitsIn(const PageBoxes& boxes, PageBoxId leaf) {
    std::uint32_t units = 0;
    for (PageBoxId box = leaf; box < boxes[leaf].end; ++box)
        units += boxes[box].units;
    return units;
}
} // namespace

std::size_t ZoneOf(const std::vector<PageZone>& zones, PageBoxId box) {
    const auto found = std::ranges::upper_bound(zones, box, {}, &PageZone::end);
    return std::min(std::size_t(found - zones.begin()), zones.size() - 1);
}

std::vector<PageZone> ZonesOf(const PageBoxes& boxes, const std::vector<SideBox>& sides) {
    TextBeside beside(sides);
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
        beside.Begin(box);
        if (!IsFlowLeaf(boxes, box)) {
            ++box;
            continue;
        }
        ++leaves;
        joined = HasFloats(boxes, box) ? floatReach : joined - 1;
        const std::uint32_t units = UnitsIn(boxes, box);
        const bool isBeside = beside.Has(box);
        if (!isBeside) beside.AddLeaf(units);
        zone.units += units;
        zone.lastLeaf = box;
        zone.end = boxes[box].end;
        zone.weight += units + elementWeight * (zone.end - box);
        const int leafLimit = beside.IsMissing() ? maxLeavesByForce : maxLeaves;
        if (HasHeight(boxes[box]) && !isBeside &&
            ((joined <= 0 && !beside.IsMissing()) || leaves >= leafLimit ||
             zone.weight >= maxZoneWeight))
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
