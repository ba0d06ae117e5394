#include "view/html/page_top_keeper.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {
constexpr PageMeasurer::Time placeTime(300); // that the first frame waits for a height
constexpr PageMeasurer::Time exactTime(1000);
// Of a window that comes up: window managers change its size after it was shown.
constexpr PageMeasurer::Time settlingTime(3000);
} // namespace

void PageTopKeeper::Release() {
    wantedHeight_.reset();
    anchor_.reset();
    asked_.reset();
}

void PageTopKeeper::OnNewScale() {
    wantedHeight_.reset();
    asked_.reset();
}

std::optional<PageTopKeeper::Anchor> PageTopKeeper::AnchorOf(const PageViewport& view) const {
    if (scroller_.IsAtStart()) return std::nullopt;
    if (anchor_) return anchor_;
    const auto line = view.FirstLine();
    if (!line) {
        const PageScroller::Top& top = scroller_.Position();
        const double height = std::max(1.0, view.shown.Flow().HeightOf(top.zone));
        return Anchor{.position = -1, .zone = top.zone, .share = top.y / height};
    }
    const TextPos position = view.PositionOf(*line);
    const auto place = view.PlaceOf(position);
    if (!place) return std::nullopt;
    return Anchor{position, view.TopOf(*place) / place->height};
}

void PageTopKeeper::Restore(const PageViewport& view, const std::optional<Anchor>& anchor) {
    if (asked_ && (wantedHeight_ || window_.SteadyTime() < askedUntil_))
        GoTo(view, PageTop(*asked_));
    else
        GoToAnchor(view, anchor);
}

void PageTopKeeper::GoToAnchor(const PageViewport& view, const std::optional<Anchor>& anchor) {
    anchor_ = anchor;
    if (!anchor) return scroller_.ScrollToStart();
    PageFlow& flow = view.shown.Flow();
    if (anchor->position < 0 && flow.ZoneCount() > 0) {
        const std::size_t zone = std::min(anchor->zone, flow.ZoneCount() - 1);
        return scroller_.ScrollTo({zone, anchor->share * flow.HeightOf(zone)});
    }
    if (const auto place = view.PlaceOf(anchor->position))
        scroller_.ScrollTo({place->block.zone, place->top - anchor->lines * place->height});
}

void PageTopKeeper::BringToTop(const PageViewport& view, const PageTop& top) {
    asked_ = top;
    askedUntil_ = window_.SteadyTime() + settlingTime;
    GoTo(view, top);
}

// To words at once; to a pixel when all above has been measured.
void PageTopKeeper::GoTo(const PageViewport& view, const PageTop& top) {
    wantedHeight_.reset();
    anchor_.reset();
    isUnseen_ = false;
    const bool hasWords = GoToLine(view, top);
    if (hasWords && top.offset < 0) return;
    const double height = std::max(0, top.offset) * view.Scale();
    if (!hasWords) return GoToHeight(view, height);
    wantedHeight_ = height;
    ReachWantedHeight(view, PageMeasurer::backgroundStep);
}

// Others may be asked for before this one is seen: nothing is measured for it yet.
void PageTopKeeper::GoToHeight(const PageViewport& view, double height) {
    PageFlow& flow = view.shown.Flow();
    const std::size_t first = flow.FirstNotMeasured();
    const double bottom = height + view.size.height;
    if (first < flow.ZoneCount() && flow.Heights().Top(first) <= bottom) {
        wantedHeight_ = height;
        isUnseen_ = true;
    }
    scroller_.ScrollToHeight(height);
}

bool PageTopKeeper::Arrive(const PageViewport& view) {
    return std::exchange(isUnseen_, false) && wantedHeight_ && ReachWantedHeight(view, placeTime);
}

bool PageTopKeeper::GoToLine(const PageViewport& view, const PageTop& top) {
    const auto place = top.start > 0 ? view.PlaceOf(top.start) : std::nullopt;
    if (!place) return false;
    const double above = std::min(top.above * view.Scale(), place->height - 1);
    scroller_.ScrollTo(
        {place->block.zone, place->top - std::round(view.shown.TopMargin()) + above});
    anchor_ = Anchor{top.start, view.TopOf(*place) / place->height};
    return true;
}

// Words that are elsewhere in this layout stay at the top, and their line is seen as a whole.
void PageTopKeeper::GoToMeasured(const PageViewport& view, double height) {
    constexpr double slack = 2; // CSS pixels, of what was rounded
    const bool hasWords = asked_ && asked_->start > 0;
    if (!hasWords || std::abs(scroller_.Height() - height) <= slack * view.Scale())
        scroller_.ScrollToHeight(height);
    else if (asked_->above > 0)
        GoToLine(view, {.start = asked_->start});
}

bool PageTopKeeper::GoOn(const PageViewport& view) {
    return ReachWantedHeight(view, PageMeasurer::backgroundStep);
}

bool PageTopKeeper::ReachWantedHeight(const PageViewport& view, PageMeasurer::Time limit) {
    const double bottom = *wantedHeight_ + view.size.height;
    if (!measurer_.MeasureTo(view.shown.Flow(), bottom, limit)) return false;
    scroller_.LayoutsChanged();
    GoToMeasured(view, *std::exchange(wantedHeight_, {}));
    return true;
}

bool PageTopKeeper::Settle(const PageViewport& view) {
    if (wantedHeight_) return ReachWantedHeight(view, exactTime);
    measurer_.MeasureAbove(view.shown.Flow(), scroller_.Position().zone, exactTime);
    return false;
}

double PageTopKeeper::Height(const PageViewport& view) const {
    return wantedHeight_.value_or(scroller_.Height()) / view.Scale();
}

PageTop PageTopKeeper::PlaceAtTop(const PageViewport& view) const {
    PageTop top;
    if (view.shown.Flow().FirstNotMeasured() >= scroller_.Position().zone)
        top.offset = Rounded(scroller_.Height() / view.Scale());
    const auto anchor = AnchorOf(view);
    const bool hasWords = anchor && anchor->position >= 0;
    top.start = hasWords ? anchor->position : 0;
    if (const auto place = hasWords ? view.PlaceOf(top.start) : std::nullopt)
        top.above =
            Rounded((std::round(view.shown.TopMargin()) - view.TopOf(*place)) / view.Scale());
    return top;
}

PageTop PageTopKeeper::Top(const PageViewport& view) const {
    PageTop top = wantedHeight_ ? *asked_ : PlaceAtTop(view);
    const std::u16string& text = view.page.Text();
    top.length = view.page.Length();
    if (top.start < 0) return top;
    const TextPos start = std::min(top.start, top.length);
    const TextPos first = std::max(0, start - PageTop::maxAround);
    top.before = text.substr(std::size_t(first), std::size_t(start - first));
    top.after = text.substr(std::size_t(start), PageTop::maxAround);
    return top;
}
