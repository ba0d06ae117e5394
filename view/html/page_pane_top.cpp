// What is at the top of a page's view: by its words, and by pixels from the page's start, which are
// exact when all above has been measured.
#include "view/html/page_pane.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace {
constexpr int measuringTime = 8; // milliseconds
constexpr int exactTime = 1000;  // for a place that is stored
// Of a window that comes up: window managers change its size after it was shown.
constexpr std::chrono::seconds settlingTime(3);
} // namespace

// At the page's start there is none: what is above the first line stays in view.
std::optional<PagePane::PlaceAtTop> PagePane::TopAnchor() {
    if (scroller_.IsAtStart()) return std::nullopt;
    if (topAnchor_) return topAnchor_;
    const auto line = FirstLine();
    if (!line) return ZoneAtTop();
    const PagePlaces places(*page_, *shown_);
    const TextPos position = places.PositionOf(line->block.Content(), line->unit);
    const auto place = PlaceOf(position);
    if (!place) return std::nullopt;
    return PlaceAtTop{position, scroller_.InView(place->block.zone, place->top) / place->height};
}

PagePane::PlaceAtTop PagePane::ZoneAtTop() {
    const PageScroller::Top& top = scroller_.Position();
    const double height = std::max(1.0, shown_->Flow().HeightOf(top.zone));
    return {.position = -1, .zone = top.zone, .share = top.y / height};
}

void PagePane::RestoreTop(const std::optional<PlaceAtTop>& anchor) {
    topAnchor_ = anchor;
    if (!anchor) return scroller_.ScrollToStart();
    PageFlow& flow = shown_->Flow();
    if (anchor->position < 0 && flow.ZoneCount() > 0) {
        const std::size_t zone = std::min(anchor->zone, flow.ZoneCount() - 1);
        return scroller_.ScrollTo({zone, anchor->share * flow.HeightOf(zone)});
    }
    if (const auto place = PlaceOf(anchor->position))
        scroller_.ScrollTo({place->block.zone, place->top - anchor->lines * place->height});
}

// Measures zones from the first on, until `isEnough` or all are; false when the time was over
// before.
bool PagePane::MeasureUntil(const std::function<bool(std::size_t)>& isEnough, int milliseconds) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    PageFlow& flow = shown_->Flow();
    while (flow.FirstNotMeasured() < flow.ZoneCount()) {
        if (isEnough(flow.FirstNotMeasured())) return true;
        if (std::chrono::steady_clock::now() > end) return false;
        flow.MeasureSome(1); // one may take some of that time
    }
    return true;
}

bool PagePane::MeasureHeight(double height, int milliseconds) {
    const HeightIndex& heights = shown_->Flow().Heights();
    return MeasureUntil([&](std::size_t zone) { return heights.Top(zone) > height; }, milliseconds);
}

bool PagePane::MeasureAbove(std::size_t zone, int milliseconds) {
    return MeasureUntil([&](std::size_t first) { return first >= zone; }, milliseconds);
}

// Whether the heights down to it are exact now.
bool PagePane::ReachWantedHeight(int milliseconds) {
    if (!MeasureHeight(*wantedHeight_ + options_.viewport.height, milliseconds)) return false;
    scroller_.LayoutsChanged();
    GoToMeasured(*std::exchange(wantedHeight_, {}));
    OnScrolled();
    return true;
}

// Words that are elsewhere in this layout stay at the top, and their line is seen as a whole.
void PagePane::GoToMeasured(double height) {
    constexpr double slack = 2; // CSS pixels, of what was rounded
    const bool hasWords = newTop_ && newTop_->start > 0;
    if (!hasWords || std::abs(scroller_.Height() - height) <= slack * options_.scale)
        scroller_.ScrollToHeight(height);
    else if (newTop_->above > 0)
        GoToLine({.start = newTop_->start});
}

void PagePane::MeasureMore() {
    if (!UpdateLayout()) return;
    if (pictures_->ResetLeftOut()) window_.Redraw();
    if (wantedHeight_) {
        ReachWantedHeight(measuringTime);
        return;
    }
    if (MeasureAll(measuringTime)) window_.StopTimer(PaneTimer::Measuring);
    UpdateScrollBars();
}

void PagePane::ScrollTo(int left, int top) {
    BringToTop({.offset = top});
    if (page_) scrollX_ = std::max(0, Rounded(left * options_.scale));
}

void PagePane::BringToTop(const PageTop& top) {
    if (!UpdateLayout()) return;
    scrollX_ = 0;
    newTop_ = top;
    newTopUntil_ = std::chrono::steady_clock::now() + settlingTime;
    GoTo(top);
    OnScrolled();
}

// To words at once; to a pixel when all above has been measured.
void PagePane::GoTo(const PageTop& top) {
    wantedHeight_.reset();
    topAnchor_.reset();
    const bool hasWords = GoToLine(top);
    if (hasWords && top.offset < 0) return;
    const double height = std::max(0, top.offset) * options_.scale;
    if (MeasureHeight(height + options_.viewport.height, hasWords ? measuringTime : placeTime))
        return GoToMeasured(height);
    wantedHeight_ = height;
    window_.StartTimer(PaneTimer::Measuring, measuringInterval);
    if (!hasWords) scroller_.ScrollToHeight(height);
}

bool PagePane::GoToLine(const PageTop& top) {
    const auto place = top.start > 0 ? PlaceOf(top.start) : std::nullopt;
    if (!place) return false;
    const double above = std::min(top.above * options_.scale, place->height - 1);
    scroller_.ScrollTo({place->block.zone, place->top - std::round(shown_->TopMargin()) + above});
    const double inView = scroller_.InView(place->block.zone, place->top);
    topAnchor_ = PlaceAtTop{top.start, inView / place->height};
    return true;
}

PageTop PagePane::Top() {
    if (!UpdateLayout()) return {};
    PageTop top;
    if (wantedHeight_ && !ReachWantedHeight(exactTime)) {
        top = *newTop_;
    } else {
        if (MeasureAbove(scroller_.Position().zone, exactTime))
            top.offset = Rounded(scroller_.Height() / options_.scale);
        const auto anchor = TopAnchor();
        const bool hasWords = anchor && anchor->position >= 0;
        top.start = hasWords ? anchor->position : 0;
        const auto place = hasWords ? PlaceOf(anchor->position) : std::nullopt;
        if (place)
            top.above = Rounded((std::round(shown_->TopMargin()) -
                                 scroller_.InView(place->block.zone, place->top)) /
                                options_.scale);
    }
    const std::u16string& text = page_->Text();
    top.length = page_->Length();
    if (top.start < 0) return top;
    const TextPos start = std::min(top.start, top.length);
    const TextPos first = std::max(0, start - PageTop::maxAround);
    top.before = text.substr(std::size_t(first), std::size_t(start - first));
    top.after = text.substr(std::size_t(start), PageTop::maxAround);
    return top;
}

int PagePane::ScrollTop() {
    if (!UpdateLayout()) return 0;
    if (wantedHeight_ && !ReachWantedHeight(exactTime))
        return Rounded(*wantedHeight_ / options_.scale);
    MeasureAbove(scroller_.Position().zone, exactTime);
    return Rounded(scroller_.Height() / options_.scale);
}
