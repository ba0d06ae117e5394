// Where the characters of a page are in its view, and how they come into it.
#include "view/html/page_pane.h"

#include <algorithm>
#include <cmath>

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
    if (!UpdateLayout()) return 0;
    const double height = scroller_.Height(), max = scroller_.MaxHeight();
    if (height >= max - 1) return 100;
    return int(100 * height / max + 0.01);
}

void PagePane::ScrollToPercent(int percent) {
    if (!UpdateLayout()) return;
    MeasureAll(placeTime);
    scroller_.ScrollToHeight(std::ceil(scroller_.MaxHeight() * percent / 100));
    OnUserScrolled();
}

bool PagePane::ScrollDown(double pixels) {
    if (!UpdateLayout()) return false;
    const PageScroller::Top before = scroller_.Position();
    scroller_.ScrollBy(pixels * options_.scale);
    OnUserScrolled();
    return scroller_.Position() != before;
}

int PagePane::LineTop(TextPos position) {
    if (!UpdateLayout()) return 0;
    const auto place = position > 0 ? PlaceOf(position) : std::nullopt;
    if (!place) return Rounded((shown_->TopMargin() - scroller_.Height()) / options_.scale);
    // What lies between it and the view is to be exact.
    MeasureAbove(std::max(place->block.zone, scroller_.Position().zone), placeTime);
    return Rounded(scroller_.InView(place->block.zone, place->top) / options_.scale);
}

int PagePane::CharacterLeft(TextPos position) {
    const auto place = UpdateLayout() ? PlaceOf(position) : std::nullopt;
    return place ? Rounded((place->x - scrollX_) / options_.scale) : 0;
}

// A line of which less than a quarter is seen is none that is read.
std::optional<CharacterPlace> PagePane::FirstLine() {
    const int margin = Rounded(shown_->TopMargin());
    auto line = LineAt({0, margin + 1}, true);
    if (!line) return std::nullopt;
    const double bottom = scroller_.InView(line->block.zone, line->LineBottom());
    if (bottom - margin > (line->LineBottom() - line->LineTop()) / 4) return line;
    const auto next = LineAt({0, int(std::ceil(bottom)) + 1}, true);
    return next ? next : line;
}

TextPos PagePane::StartAtTop() {
    if (!UpdateLayout()) return -1;
    const auto line = FirstLine();
    if (!line) return 0;
    return PagePlaces(*page_, *shown_).PositionOf(line->block.Content(), line->unit);
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
