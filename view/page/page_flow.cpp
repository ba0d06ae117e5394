#include "view/page/page_flow.h"

#include "view/page/block_flow.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {
// Zones that stay laid out, and their weight: some ten megabytes.
constexpr std::size_t maxKept = 64;
constexpr std::size_t maxKeptWeight = 512 * 1024;

// Device pixels. Lines in each other (`line-height:0`) would bring all of a page to one place, and
// a screen shows no more than is kept. Lines of fewer than some thousand letters are higher.
double MinHeight(const PageZone& zone) {
    constexpr double weightOfPixel = 512;
    return zone.weight / weightOfPixel;
}
} // namespace

PageFlow::PageFlow(PageLayouter& layouter) : layouter_(layouter) {
    const std::vector<SideBox> sides = SideBoxesOf(layouter.Boxes());
    zones_ = ZonesOf(layouter.Boxes(), sides);
    for (const SideBox& side : sides) {
        const std::size_t own = ::ZoneOf(zones_, side.leaf);
        const std::size_t zone = ::ZoneOf(zones_, std::max(rootPageBox, side.container));
        const bool isInFlow = side.kind != SideBox::Kind::Positioned;
        if (zone < own || (zone == own && isInFlow))
            sides_.push_back({side, zone, own, std::nullopt});
    }
}

std::size_t PageFlow::ZoneOf(PageBoxId box) {
    const std::size_t own = ::ZoneOf(zones_, box);
    for (Side& each : sides_) {
        const PageBoxId side = each.side.box;
        if (box >= side && box < layouter_.Box(side).end) return IsPlaced(each) ? each.zone : own;
    }
    return own;
}

bool PageFlow::IsPlaced(Side& side) {
    if (!side.isPlaced) LayOut(side.zone);
    return side.isPlaced.value_or(false);
}

// Those that are placed relative to the same zone are tried beside its text first.
std::vector<PageBoxId> PageFlow::BoxesElsewhere(std::size_t zone) {
    std::vector<PageBoxId> boxes;
    for (Side& each : sides_) {
        if (each.ownZone != zone) continue;
        if (each.IsWithinZone() ? each.isPlaced.value_or(true) : IsPlaced(each))
            boxes.push_back(each.side.kind == SideBox::Kind::Positioned ? each.side.box
                                                                        : each.side.leaf);
    }
    return boxes;
}

// False where one has no room beside the text that was to have it.
bool PageFlow::PlaceSides(std::size_t zone, BlockFlow& flow) {
    bool arePlaced = true;
    for (Side& each : sides_) {
        if (each.zone != zone || (each.IsWithinZone() && !each.isPlaced.value_or(true))) continue;
        each.isPlaced = flow.PlaceBeside(each.side);
        arePlaced = arePlaced && (*each.isPlaced || !each.IsWithinZone());
    }
    return arePlaced;
}

void PageFlow::GiveUpSides(std::size_t zone) {
    for (Side& each : sides_)
        if (each.zone == zone && each.IsWithinZone()) each.isPlaced = false;
}

void PageFlow::SetWidth(double width) {
    if (width == width_) return;
    width_ = width;
    ForgetLayouts();
    for (Side& each : sides_)
        each.isPlaced.reset();
    nextToMeasure_ = 0;
    std::vector<double> estimates;
    estimates.reserve(zones_.size());
    for (const PageZone& zone : zones_)
        estimates.push_back(Estimate(zone));
    heights_ = HeightIndex(estimates);
}

void PageFlow::ForgetLayouts() {
    kept_.clear();
    keptWeight_ = 0;
}

// Letters are about half as wide as high, and a paragraph has a line's space.
double PageFlow::Estimate(const PageZone& zone) const {
    const float fontSize = layouter_.Box(rootPageBox).text->fontSize;
    const double em = fontSize * layouter_.Measure().Scale();
    const double lines = std::ceil(zone.units * em / 2 / std::max(width_, em));
    return (lines + 1) * em * 1.2;
}

PageFragmentPtr PageFlow::LayOut(std::size_t zone) {
    const auto known = std::find_if(kept_.begin(), kept_.end(),
                                    [&](const Kept& kept) { return kept.zone == zone; });
    if (known != kept_.end()) {
        kept_.splice(kept_.begin(), kept_, known);
        return kept_.front().fragment;
    }
    kept_.push_front({zone, MakeLayout(zone)});
    keptWeight_ += zones_[zone].weight;
    while (kept_.size() > maxKept || (keptWeight_ > maxKeptWeight && kept_.size() > 1)) {
        keptWeight_ -= zones_[kept_.back().zone].weight;
        kept_.pop_back();
    }
    return kept_.front().fragment;
}

double PageFlow::HeightOf(std::size_t zone) {
    if (!heights_.IsMeasured(zone)) LayOut(zone);
    return heights_.Height(zone);
}

PageFragmentPtr PageFlow::MakeLayout(std::size_t zone) {
    auto fragment = std::make_shared<PageFragment>();
    if (!LayOutZone(zone, *fragment) && !LayOutZone(zone, *fragment)) {
        GiveUpSides(zone);
        LayOutZone(zone, *fragment);
    }
    heights_.SetMeasured(zone, fragment->height);
    return fragment;
}

// False if another attempt is needed, without boxes beside the text that have no room there.
bool PageFlow::LayOutZone(std::size_t zone, PageFragment& fragment) {
    std::vector<PageBoxId> elsewhere = BoxesElsewhere(zone);
    ++layoutsMade_;
    fragment = {};
    BlockFlow flow(layouter_, noPageBox, {0, width_}, fragment);
    flow.LeaveOut(std::move(elsewhere));
    const bool first = zone == 0, last = zone + 1 == zones_.size();
    if (!first) flow.StartAfter(zones_[zone - 1].lastLeaf);
    flow.LayOut(first ? rootPageBox : zones_[zone - 1].end, zones_[zone].end);
    if (!PlaceSides(zone, flow)) return false;
    if (last)
        flow.Finish();
    else
        flow.Break(zones_[zone].endsBelowFloats);
    fragment.width = width_;
    fragment.height = std::max(flow.Bottom(), MinHeight(zones_[zone]));
    return true;
}

std::size_t PageFlow::FirstNotMeasured() {
    while (nextToMeasure_ < zones_.size() && heights_.IsMeasured(nextToMeasure_))
        ++nextToMeasure_;
    return nextToMeasure_;
}

bool PageFlow::MeasureSome(std::size_t zones) {
    for (; zones > 0 && FirstNotMeasured() < zones_.size(); --zones)
        MakeLayout(nextToMeasure_);
    return FirstNotMeasured() < zones_.size();
}
