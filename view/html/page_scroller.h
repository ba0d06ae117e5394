// The scroll position of a page: a height within the zone at the top of the view, so that it stays
// while zones above turn out higher or lower than they were taken for.
#pragma once

#include "view/html/page_places.h"

class PageScroller {
  public:
    // Device pixels from the top of a zone.
    struct Top {
        std::size_t zone = 0;
        double y = 0;
        // NOLINTNEXTLINE(modernize-use-nullptr): in what the compiler makes
        auto operator<=>(const Top&) const = default;
    };

    void SetPage(ShownPage* page, int viewHeight); // observed; null for none
    void LayoutsChanged() { maxTop_.reset(); }

    const Top& Position() const { return top_; }
    bool IsAtStart() const { return top_ == Top{}; }
    void ScrollTo(Top top);             // as far as the page goes
    void ScrollToStart() { top_ = {}; } // nothing is laid out for it
    void ScrollBy(double pixels) { ScrollTo({top_.zone, top_.y + pixels}); }
    void ScrollToEnd(); // at the cost of a screen
    // From the page's top, and back: exact once all above has been measured.
    void ScrollToHeight(double pixels);
    double Height() const;
    double MaxHeight();
    int Percent(); // 100 when the page's end is in view

    // A height of a zone in the view, and the zone and height that are at one of the view.
    double InView(std::size_t zone, double y) const;
    Top At(double inView) const;
    // A place so much further down or up, as far as the page goes.
    Top Moved(Top top, double pixels) const;

  private:
    void Normalize(Top& top) const;
    const Top& MaxTop();

    ShownPage* page_ = nullptr;
    int viewHeight_ = 1;
    Top top_;
    std::optional<Top> maxTop_; // with the page's end at the view's
};
