// What the mouse does to a page.
#include "view/html/page_pane.h"

#include <algorithm>

TextPos PagePane::PositionAtPoint(Point point) {
    const PageViewport view = CurrentViewport();
    const auto line = view.LineAt(point);
    return line ? view.Places().PositionInLine(*line, point.x + scrollX_) : 0;
}

void PagePane::Click(Point point, int count, bool extend) {
    if (!UpdateLayout()) return;
    links_.Press(count == 1 && !extend ? LinkAt(CurrentViewport(), point) : noHtmlNode);
    const TextPos position = PositionAtPoint(point);
    drag_.Press(point, count);
    const bool fromAnchor = extend && drag_.By() == DragSelection::Unit::Character;
    drag_.KeepSelected(fromAnchor ? TextSpan{anchor_, anchor_} : UnitAround(position));
    ExtendTo(point);
}

bool PagePane::IsLink(Point point) {
    return UpdateLayout() && LinkAt(CurrentViewport(), point) != noHtmlNode;
}

void PagePane::PrepareContextMenu(Point point) {
    if (!UpdateLayout()) return;
    const TextPos position = PositionAtPoint(point);
    if (position < SelStart() || position >= SelEnd()) Select(position, position);
}

TextSpan PagePane::UnitAround(TextPos position) {
    const std::u16string& text = page_->Text();
    if (drag_.By() == DragSelection::Unit::Paragraph) {
        const auto at = std::size_t(position);
        const std::size_t before = at == 0 ? text.npos : text.rfind(u'\n', at - 1);
        return {before == text.npos ? 0 : TextPos(before) + 1,
                TextPos(std::min(text.find(u'\n', at), text.size()))};
    }
    if (drag_.By() == DragSelection::Unit::Word) {
        const PagePlaces places(*page_, *shown_);
        if (const auto place = PlaceOf(position)) {
            const TextPos start = place->block.PieceStart(place->line);
            const CharSpan word = place->block.Piece(place->line).WordAt(place->unit - start);
            const InlineContent& content = place->block.Content();
            return {places.PositionOf(content, start + word.start),
                    places.PositionOf(content, start + word.start + word.length)};
        }
    }
    return {position, position};
}

// By words or paragraphs if the drag started with a double or triple click.
void PagePane::ExtendTo(Point point) {
    const auto ends = drag_.ExtendedTo(UnitAround(PositionAtPoint(point)));
    Select(ends.anchor, ends.caret);
}

void PagePane::DragTo(Point point) {
    if (!UpdateLayout() || links_.KeepPressed(CurrentViewport(), point)) return;
    ExtendTo(point);
    drag_.MoveTo(point);
}

// A link that is pressed and let go is followed.
void PagePane::EndDrag() {
    drag_.Finish();
    const HtmlNodeId link = links_.LetGo();
    if (link != noHtmlNode && onLink) onLink(link);
}

// The speed grows with the distance from the window.
void PagePane::AutoScroll() {
    ScrollBy(drag_.Overshoot());
    ExtendTo(drag_.Mouse());
}
