// Keys of a text pane, and what brings the caret into view.
#include "view/text_pane.h"

#include <algorithm>

bool TextPane::Press(PaneKey key, bool extend, bool control) {
    UpdateLayoutSize();
    if (key == PaneKey::Space) {
        if (control) return false;
        ScrollPage(!extend);
        return true;
    }
    const bool sideways = key == PaneKey::Left || key == PaneKey::Right;
    if (sideways && !control && !extend && anchor_ != caret_) { // collapses the selection
        MoveCaret(key == PaneKey::Left ? SelStart() : SelEnd(), false);
        return true;
    }
    const auto target = KeyTarget(key, control);
    if (!target) return false;
    const std::optional<int> column = preferredX_;
    const bool page = key == PaneKey::PageUp || key == PaneKey::PageDown;
    // Paging within a line higher than the view may leave the caret out of view.
    const bool shown = page && scroller_.IsTallAndVisible(*target);
    const VerticalPos top = scroller_.Top();
    MoveCaret(*target, extend);
    if (shown) scroller_.ScrollTo(top);
    const bool byLine = !control && (key == PaneKey::Up || key == PaneKey::Down);
    if (page || byLine) preferredX_ = column;
    return true;
}

std::optional<TextPos> TextPane::KeyTarget(PaneKey key, bool control) {
    switch (key) {
    case PaneKey::Left: return control ? WordLeft(layouts_, caret_) : CaretLeft(layouts_, caret_);
    case PaneKey::Right:
        return control ? WordRight(layouts_, caret_) : CaretRight(layouts_, caret_);
    case PaneKey::Home: return control ? 0 : CaretHome(layouts_, caret_);
    case PaneKey::End: return control ? text_->Length() : CaretEnd(layouts_, caret_);
    case PaneKey::Up: return control ? ParagraphUp(layouts_, caret_) : VerticalTarget(key);
    case PaneKey::Down: return control ? ParagraphDown(layouts_, caret_) : VerticalTarget(key);
    case PaneKey::PageUp:
    case PaneKey::PageDown:
        if (control) return std::nullopt;
        return VerticalTarget(key);
    case PaneKey::Space: break;
    }
    return std::nullopt;
}

TextPos TextPane::VerticalTarget(PaneKey key) {
    if (!preferredX_) preferredX_ = CaretBox(*layouts_.At(caret_), caret_).left;
    switch (key) {
    case PaneKey::Up: return CaretUp(layouts_, caret_, *preferredX_);
    case PaneKey::Down: return CaretDown(layouts_, caret_, *preferredX_);
    default: return PageTarget(key == PaneKey::PageDown);
    }
}

// The caret keeps its place in the view while the text scrolls; if the text cannot scroll, it moves
// to the start or end.
TextPos TextPane::PageTarget(bool down) {
    const auto caret = CaretRect();
    const int lowest = std::max(0, scroller_.ViewHeight() - 1);
    const int y = caret ? std::clamp(caret->top + (caret->height - 1) / 2, 0, lowest) : 0;
    const VerticalPos before = scroller_.Top();
    scroller_.ScrollPage(down, LineHeight());
    const VerticalPos height = scroller_.NearestWholeLine(y);
    const TextPos target = PositionAt(*layouts_.At(height.block), {*preferredX_, height.y});
    if (scroller_.Top() != before) return target;
    return down ? text_->Length() : 0;
}

void TextPane::MoveCaret(TextPos position, bool extend) {
    Select(extend ? anchor_ : position, position);
    Reveal(caret_);
}

// Space that stays visible beside a position scrolled to.
int TextPane::SideMargin() {
    return std::min(width_ / 4, 4 * LineHeight());
}

// Painting determines the horizontal range; until then it may be too small.
void TextPane::ScrollRightTo(int x) {
    maxScrollX_ = std::max(maxScrollX_, x);
    scrollX_ = std::clamp(x, 0, maxScrollX_);
    ShowHorizontal();
}

void TextPane::Reveal(TextPos position) {
    Scroller().Reveal(position);
    if (horizontalBar_) {
        const int x = CaretBox(*layouts_.At(position), position).left - ToTextX(0);
        const int value = scrollX_, room = SideMargin();
        if (x < room) ScrollRightTo(value + x - room);
        if (x > width_ - room) ScrollRightTo(value + x - width_ + room);
    }
    OnScrolled();
}

void TextPane::RevealHorizontally(TextPos start, TextPos end) {
    const auto layout = Layouts().At(start);
    if (!horizontalBar_) return;
    const LineRef line = LineOf(*layout, start);
    const TextPos last = std::min(end, LineEnd(*layout, line));
    const int from = CaretX(*layout, line, start) - ToTextX(0);
    const int to = CaretX(*layout, line, last) - ToTextX(0);
    const auto [left, right] = std::minmax(from, to);
    const int room = SideMargin();
    if (left >= 0 && right < width_) return;
    const bool endsLeft = to < from && right - left > width_ - 2 * room;
    const int toLeft = left - room, toRight = right + room - width_;
    ScrollRightTo(scrollX_ + (endsLeft ? toRight : std::min(toLeft, toRight)));
    OnScrolled();
}
