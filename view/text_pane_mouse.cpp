// Selecting by the mouse.
#include "view/text_pane.h"

#include <algorithm>
#include <iterator>
#include <utility>

void TextPane::Click(Point point, int count, bool extend) {
    pressedLink_ = onLink && count == 1 && !extend ? LinkAt(point) : u"";
    const TextPos position = PositionAtPoint(point);
    drag_.Press(point, count);
    const bool fromAnchor = extend && drag_.By() == DragSelection::Unit::Character;
    drag_.KeepSelected(fromAnchor ? TextSpan{anchor_, anchor_} : UnitAround(position));
    ExtendTo(point);
}

TextSpan TextPane::UnitAround(TextPos position) {
    switch (drag_.By()) {
    case DragSelection::Unit::Word: return WordAround(Layouts(), position);
    case DragSelection::Unit::Paragraph: return ParagraphAround(Layouts(), position);
    case DragSelection::Unit::Character: break;
    }
    return {position, position};
}

// By words or paragraphs if the drag started with a double or triple click.
void TextPane::ExtendTo(Point point) {
    const auto ends = drag_.ExtendedTo(UnitAround(PositionAtPoint(point)));
    Select(ends.anchor, ends.caret);
}

void TextPane::DragTo(Point point) {
    if (!pressedLink_.empty() && LinkAt(point) == pressedLink_) return;
    pressedLink_.clear();
    ExtendTo(point);
    drag_.MoveTo(point);
}

// A link that is pressed and let go is followed.
void TextPane::EndDrag() {
    drag_.Finish();
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
    ScrollBy(drag_.Overshoot());
    ExtendTo(drag_.Mouse());
}

void TextPane::PrepareContextMenu(Point point) {
    const TextPos position = PositionAtPoint(point);
    if (position < SelStart() || position >= SelEnd()) Select(position, position);
}
