// Where the characters of a page are in its view, and how they come into it.
#include "view/html/page_pane.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr PageMeasurer::Time percentTime(300); // for the share of a page's height
} // namespace

std::optional<CharacterPlace> PagePane::PlaceOf(TextPos position) {
    return CurrentViewport().PlaceOf(position);
}

int PagePane::TopMargin() {
    return UpdateLayout() ? Rounded(shown_->TopMargin() / options_.scale) : 0;
}

void PagePane::ScrollLineToTop(TextPos position) {
    if (!UpdateLayout()) return;
    scrollX_ = 0;
    const auto place = position > 0 ? PlaceOf(position) : std::nullopt;
    scroller_.ScrollTo(
        place ? PageScroller::Top{place->block.zone, place->top - std::round(shown_->TopMargin())}
              : PageScroller::Top{});
    OnUserScrolled();
}

int PagePane::Percent() {
    return UpdateLayout() ? scroller_.Percent() : 0;
}

void PagePane::ScrollToPercent(int percent) {
    if (!UpdateLayout()) return;
    if (percent > 0 && percent < 100) measurer_.MeasureAll(shown_->Flow(), percentTime);
    if (percent >= 100)
        scroller_.ScrollToEnd();
    else
        scroller_.ScrollToHeight(std::ceil(scroller_.MaxHeight() * percent / 100));
    OnUserScrolled();
}

bool PagePane::ScrollDown(double pixels) {
    if (!UpdateLayout()) return false;
    Arrive();
    const PageScroller::Top before = scroller_.Position();
    scroller_.ScrollBy(pixels * options_.scale);
    OnUserScrolled();
    return scroller_.Position() != before;
}

void PagePane::ScrollTo(int left, int top) {
    BringToTop({.offset = top});
    if (page_) scrollX_ = std::max(0, Rounded(left * options_.scale));
}

void PagePane::BringToTop(const PageTop& top) {
    if (!UpdateLayout()) return;
    scrollX_ = 0;
    top_.BringToTop(CurrentViewport(), top);
    OnScrolled();
}

void PagePane::Arrive() {
    if (top_.Arrive(CurrentViewport())) OnScrolled();
}

void PagePane::SettleTop() {
    if (UpdateLayout() && top_.Settle(CurrentViewport())) OnScrolled();
}

// All of a page of some screens.
void PagePane::MeasureBriefly(std::size_t zone) {
    constexpr PageMeasurer::Time briefly(30); // less than a frame that is seen to be late
    if (top_.IsOnItsWay() && top_.GoOn(CurrentViewport())) OnScrolled();
    measurer_.MeasureAbove(shown_->Flow(), std::max(zone, scroller_.Position().zone), briefly);
}

void PagePane::ArriveAndMeasure() {
    Arrive();
    MeasureBriefly(0);
}

PageTop PagePane::Top() {
    if (UpdateLayout()) ArriveAndMeasure();
    return page_ ? top_.Top(CurrentViewport()) : PageTop{};
}

int PagePane::ScrollTop() {
    if (UpdateLayout()) ArriveAndMeasure();
    return page_ ? Rounded(top_.Height(CurrentViewport())) : 0;
}

int PagePane::LineTop(TextPos position) {
    if (!UpdateLayout()) return 0;
    const auto place = position > 0 ? PlaceOf(position) : std::nullopt;
    if (!place) return Rounded((shown_->TopMargin() - scroller_.Height()) / options_.scale);
    MeasureBriefly(place->block.zone);
    scroller_.At(options_.viewport.height); // what is in view has exact heights now
    return Rounded(scroller_.InView(place->block.zone, place->top) / options_.scale);
}

int PagePane::CharacterLeft(TextPos position) {
    const auto place = UpdateLayout() ? PlaceOf(position) : std::nullopt;
    return place ? Rounded((place->x - scrollX_) / options_.scale) : 0;
}

TextPos PagePane::StartAtTop() {
    if (!UpdateLayout()) return -1;
    Arrive();
    return CurrentViewport().StartAtTop();
}

void PagePane::Reveal(TextPos position) {
    const auto place = UpdateLayout() ? PlaceOf(position) : std::nullopt;
    if (!place) return;
    const double height = options_.viewport.height;
    const double top = scroller_.InView(place->block.zone, place->top);
    if (top < 0 || place->height > height)
        scroller_.ScrollTo({place->block.zone, place->top});
    else if (top + place->height > height)
        scroller_.ScrollTo({place->block.zone, place->top + place->height - height});
    OnUserScrolled();
    const int x = Rounded(place->x) - scrollX_, margin = Rounded(shown_->TopMargin());
    if (x >= 0 && x < options_.viewport.width) return;
    maxScrollX_ = std::max(maxScrollX_, Rounded(place->x) + margin - options_.viewport.width);
    ScrollToX(scrollX_ + (x < 0 ? x - margin : x + margin - options_.viewport.width));
}

// Of the place where the next keys extend the selection.
std::optional<Rect> PagePane::CaretRect() {
    const auto place = UpdateLayout() ? PlaceOf(caret_) : std::nullopt;
    if (!place) return std::nullopt;
    const Rect box{Rounded(place->x) - scrollX_,
                   Rounded(scroller_.InView(place->block.zone, place->top)), 1,
                   Rounded(place->height)};
    const Rect view{0, 0, options_.viewport.width, options_.viewport.height};
    return Intersect(box, view) ? std::optional(box) : std::nullopt;
}
