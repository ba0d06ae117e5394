// Selecting by the mouse.
#include "view/text_pane.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace {
constexpr int autoScrollInterval = 40; // milliseconds

// How far a coordinate is outside of 0 to `size`, with a sign.
int Beyond(int at, int size) {
    return std::max(0, at - (size - 1)) - std::max(0, -at);
}
} // namespace

void TextPane::Click(Point point, int count, bool extend) {
    mouse_ = point;
    pressedLink_ = onLink && count == 1 && !extend ? LinkAt(point) : u"";
    const TextPos position = PositionAtPoint(point);
    granularity_ = count == 3   ? Granularity::Paragraph
                   : count == 2 ? Granularity::Word
                                : Granularity::Character;
    if (granularity_ == Granularity::Character) {
        Select(extend ? anchor_ : position, position);
        dragStart_ = {anchor_, anchor_};
    } else {
        dragStart_ = UnitAround(position);
        Select(dragStart_.start, dragStart_.end);
    }
}

TextSpan TextPane::UnitAround(TextPos position) {
    switch (granularity_) {
    case Granularity::Word: return WordAround(Layouts(), position);
    case Granularity::Paragraph: return ParagraphAround(Layouts(), position);
    case Granularity::Character: break;
    }
    return {position, position};
}

// By words or paragraphs if the drag started with a double or triple click.
void TextPane::ExtendTo(Point point) {
    const TextSpan unit = UnitAround(PositionAtPoint(point));
    if (unit.start < dragStart_.start)
        Select(dragStart_.end, unit.start);
    else
        Select(dragStart_.start, std::max(unit.end, dragStart_.end));
}

void TextPane::DragTo(Point point) {
    mouse_ = point;
    if (!pressedLink_.empty() && LinkAt(point) == pressedLink_) return;
    pressedLink_.clear();
    ExtendTo(point);
    const Size room = window_.Room();
    const bool outside = Beyond(point.x, room.width) != 0 || Beyond(point.y, room.height) != 0;
    if (outside && !autoScrolls_) window_.StartTimer(PaneTimer::AutoScroll, autoScrollInterval);
    if (!outside && autoScrolls_) window_.StopTimer(PaneTimer::AutoScroll);
    autoScrolls_ = outside;
}

// A link that is pressed and let go is followed.
void TextPane::EndDrag() {
    if (autoScrolls_) window_.StopTimer(PaneTimer::AutoScroll);
    autoScrolls_ = false;
    const std::u16string link = std::exchange(pressedLink_, {});
    if (!link.empty()) onLink(link);
}

std::u16string TextPane::LinkAt(TextPos position) const {
    if (document_.links.empty()) return {};
    const auto after = std::ranges::upper_bound(document_.charRuns, position, {}, &StyleRun::start);
    const std::uint16_t link = document_.charStyles[std::prev(after)->style].link;
    return link == 0 ? u"" : document_.links[link - 1];
}

std::u16string TextPane::LinkAt(Point point) {
    if (document_.links.empty()) return {};
    const TextPos position = CharacterAtPoint(point);
    const bool hit = Intersect(CharacterRect(position), {point.x, point.y, 1, 1});
    return hit ? LinkAt(position) : u"";
}

bool TextPane::IsLink(Point point) {
    return IsPlaceholderLink(point) || (onLink && !LinkAt(point).empty());
}

// The speed grows with the distance from the window.
void TextPane::AutoScroll() {
    const Size room = window_.Room();
    ScrollBy({Beyond(mouse_.x, room.width), Beyond(mouse_.y, room.height)});
    ExtendTo(mouse_);
}

void TextPane::PrepareContextMenu(Point point) {
    const TextPos position = PositionAtPoint(point);
    if (position < SelStart() || position >= SelEnd()) Select(position, position);
}
