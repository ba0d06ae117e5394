// A page of any length, laid out where it is looked at.
#pragma once

#include "view/page/height_index.h"
#include "view/page/page_layouter.h"
#include "view/page/page_zones.h"

#include <list>
#include <optional>

class BlockFlow;

class PageFlow {
  public:
    explicit PageFlow(PageLayouter& layouter); // must outlive this object

    // Device pixels. What was laid out for another width is forgotten.
    void SetWidth(double width);
    double Width() const { return width_; }
    // For colours that have changed: heights stay.
    void ForgetLayouts();

    // That shows a box, which may be one before its own.
    std::size_t ZoneOf(PageBoxId box);
    std::size_t ZoneCount() const { return zones_.size(); }
    const PageZone& Zone(std::size_t zone) const { return zones_[zone]; }
    // Laid out if it is not at hand. Its height becomes exact.
    PageFragmentPtr LayOut(std::size_t zone);
    // Exact. A zone that has been measured is not laid out for it.
    double HeightOf(std::size_t zone);
    // Lays out up to so many zones whose height is an estimate, from the first on. False when there
    // are none.
    bool MeasureSome(std::size_t zones);
    // All zones before this one have been measured.
    std::size_t FirstNotMeasured();

    const HeightIndex& Heights() const { return heights_; }
    int LayoutsMade() const { return layoutsMade_; }

  private:
    struct Kept {
        std::size_t zone = 0;
        PageFragmentPtr fragment;
    };

    // A box that is placed relative to an earlier zone than its own.
    struct Side {
        SideBox side;
        std::size_t zone = 0, ownZone = 0;
        std::optional<bool> isPlaced; // in that zone; nothing: not known yet
        bool IsWithinZone() const { return zone == ownZone; }
    };

    PageFragmentPtr MakeLayout(std::size_t zone);
    bool IsPlaced(Side& side);
    std::vector<PageBoxId> BoxesElsewhere(std::size_t zone);
    bool PlaceSides(std::size_t zone, BlockFlow& flow);
    void GiveUpSides(std::size_t zone);
    bool LayOutZone(std::size_t zone, PageFragment& fragment);
    double Estimate(const PageZone& zone) const;

    PageLayouter& layouter_;
    std::vector<PageZone> zones_;
    std::vector<Side> sides_;
    HeightIndex heights_;
    std::list<Kept> kept_; // the last one used first
    std::size_t keptWeight_ = 0;
    double width_ = 0;
    std::size_t nextToMeasure_ = 0;
    int layoutsMade_ = 0;
};
