// What is at the top of a page's view: brought there, kept there in another layout, and told.
//
// Words lead there at once. Pixels count from the page's start, so they are exact when all above
// has been measured; what is asked for by them is shown by estimates until then.
#pragma once

#include "platform/html_view.h"
#include "view/html/page_measurer.h"
#include "view/html/page_viewport.h"

class PageTopKeeper {
  public:
    // Where a character was, to be brought there again in another layout. Among pictures alone
    // there is none near: what share of a zone was above the view.
    struct Anchor {
        TextPos position = 0; // -1 for none
        double lines = 0;     // of its letters' top in the view, in heights of them
        std::size_t zone = 0;
        double share = 0;
    };

    // Both must outlive this object. The scroller is that of every viewport that is passed.
    PageTopKeeper(PageScroller& scroller, const PaneWindow& window)
        : scroller_(scroller), window_(window), measurer_(window) {}

    // What was brought to the top or asked for is there no longer: the page is scrolled, or gone.
    void Release();
    // A place that was asked for is none in this size.
    void OnNewScale();

    void BringToTop(const PageViewport& view, const PageTop& top);
    // To be asked before the page is laid out again, and brought back afterwards. Nothing at the
    // page's start: what is above the first line stays in view.
    std::optional<Anchor> AnchorOf(const PageViewport& view) const;
    void Restore(const PageViewport& view, const std::optional<Anchor>& anchor);

    // Whether a height was asked for, and what is above it is not measured. Then some is measured
    // each time; true when it is reached, so that the page is scrolled.
    bool IsOnItsWay() const { return wantedHeight_.has_value(); }
    bool GoOn(const PageViewport& view);
    // Before what was asked for last is seen, or scrolled on from: a height that is not far down is
    // reached. Once; true when the page is scrolled by it.
    bool Arrive(const PageViewport& view);
    // What can be measured in a second, for a place that is kept for good. True when the page is
    // scrolled by it.
    bool Settle(const PageViewport& view);

    // At once, from what has been measured. Of a place that is not reached, what was asked for.
    PageTop Top(const PageViewport& view) const;
    double Height(const PageViewport& view) const; // CSS pixels; by estimates where need be

  private:
    void GoTo(const PageViewport& view, const PageTop& top);
    void GoToHeight(const PageViewport& view, double height);
    bool GoToLine(const PageViewport& view, const PageTop& top); // false where there is none
    void GoToMeasured(const PageViewport& view, double height);
    void GoToAnchor(const PageViewport& view, const std::optional<Anchor>& anchor);
    bool ReachWantedHeight(const PageViewport& view, PageMeasurer::Time limit);
    PageTop PlaceAtTop(const PageViewport& view) const;

    PageScroller& scroller_;
    const PaneWindow& window_;
    PageMeasurer measurer_;

    std::optional<double> wantedHeight_; // device pixels; while what is above is not measured
    bool isUnseen_ = false;              // what is shown of it, which is by estimates
    std::optional<Anchor> anchor_;       // of the last layout, until the page is scrolled
    // Asked for, and since then the page has not been scrolled; just now, so that the window may
    // still get its size from the desktop.
    std::optional<PageTop> asked_;
    PageMeasurer::Time askedUntil_{0};
};
