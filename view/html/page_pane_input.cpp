// Keys, selecting and links of a page.
#include "view/html/page_pane.h"

#include "common/text_clusters.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr int maxLineSteps = 40;     // half lines that are looked at for the next one
constexpr TextPos clusterReach = 64; // units around a place in which its character ends

bool IsBlank(char16_t unit) {
    return unit == u' ' || unit == u'\n';
}
} // namespace

std::optional<CharacterPlace> PagePane::LineAt(Point point, bool below) {
    const PageScroller::Top at = scroller_.At(point.y);
    return PagePlaces(*page_, *shown_).NearestLine(at.zone, point.x + scrollX_, at.y, below);
}

TextPos PagePane::PositionAtPoint(Point point) {
    const auto line = LineAt(point, false);
    if (!line) return 0;
    return PagePlaces(*page_, *shown_).PositionInLine(*line, point.x + scrollX_);
}

HtmlNodeId PagePane::LinkAround(HtmlNodeId node) const {
    const HtmlTree& tree = page_->Tree();
    for (; node != noHtmlNode; node = tree[node].parent)
        if (tree[node].Is(HtmlName::A) && tree[node].Attribute(HtmlName::Href)) return node;
    return noHtmlNode;
}

HtmlNodeId PagePane::LinkAt(Point point) {
    if (!UpdateLayout()) return noHtmlNode;
    const PagePlaces places(*page_, *shown_);
    const PageScroller::Top at = scroller_.At(point.y);
    const double x = point.x + scrollX_;
    if (const HtmlNodeId picture =
            PictureAt(*shown_->Flow().LayOut(at.zone), shown_->Boxes(), x, at.y))
        return LinkAround(picture);
    const auto line = LineAt(point, false);
    if (!line) return noHtmlNode;
    const InlineLine& box = line->block.Line(line->line);
    const double top = scroller_.InView(line->block.zone, line->LineTop());
    const double left = line->block.left + box.left;
    const double width = line->block.Piece(line->line).Line(box.line).width;
    if (point.y < top || point.y >= top + box.height || x < left || x >= left + width)
        return noHtmlNode;
    return LinkAround(places.NodeAt(line->block.Content(), places.UnitInLine(*line, x)));
}

void PagePane::Click(Point point, int count, bool extend) {
    if (!UpdateLayout()) return;
    focusedLink_ = noHtmlNode;
    pressedLink_ = count == 1 && !extend ? LinkAt(point) : noHtmlNode;
    const TextPos position = PositionAtPoint(point);
    drag_.Press(point, count);
    const bool fromAnchor = extend && drag_.By() == DragSelection::Unit::Character;
    drag_.KeepSelected(fromAnchor ? TextSpan{anchor_, anchor_} : UnitAround(position));
    ExtendTo(point);
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

bool PagePane::Press(PaneKey key, bool extend, bool control) {
    if (!UpdateLayout()) return false;
    if (key == PaneKey::Space) {
        if (control) return false;
        ScrollPage(!extend);
        return true;
    }
    if (extend) {
        const auto target = KeyTarget(key, control);
        if (!target) return false;
        Select(anchor_, *target);
        Reveal(*target);
        return true;
    }
    switch (key) {
    case PaneKey::Up: ScrollLines(-2); break;
    case PaneKey::Down: ScrollLines(2); break;
    case PaneKey::Left: ScrollBy({-2 * LineHeight(), 0}); break;
    case PaneKey::Right: ScrollBy({2 * LineHeight(), 0}); break;
    case PaneKey::PageUp: ScrollPage(false); break;
    case PaneKey::PageDown: ScrollPage(true); break;
    case PaneKey::Home: ScrollToPercent(0); break;
    case PaneKey::End: ScrollToPercent(100); break;
    case PaneKey::Space: break;
    }
    return true;
}

// Where a key with Shift moves the selection's end.
std::optional<TextPos> PagePane::KeyTarget(PaneKey key, bool control) {
    const auto place = PlaceOf(caret_);
    if (!place) return std::nullopt;
    // Another line: across the space between paragraphs, and past pictures.
    const auto vertically = [&](double y, double step) {
        for (int i = 0; i < maxLineSteps; ++i, y += step) {
            const auto line = LineAt({int(place->x) - scrollX_, int(std::floor(y))}, false);
            if (!line) break;
            const bool isSame =
                line->block.zone == place->block.zone && line->LineTop() == place->LineTop();
            if (!isSame) return PagePlaces(*page_, *shown_).PositionInLine(*line, place->x);
        }
        return caret_;
    };
    const double half = LineHeight() / 2.0;
    const double top = scroller_.InView(place->block.zone, place->LineTop());
    const double bottom = scroller_.InView(place->block.zone, place->LineBottom());
    const InlineLine& line = place->block.Line(place->line);
    const PagePlaces places(*page_, *shown_);
    const int page = look_.viewport.height - 2 * LineHeight();
    switch (key) {
    case PaneKey::Left:
    case PaneKey::Right: {
        const bool forward = key == PaneKey::Right;
        return control ? NextWord(caret_, forward) : NextCharacter(caret_, forward);
    }
    case PaneKey::Up: return vertically(top - 1, -half);
    case PaneKey::Down: return vertically(bottom + 1, half);
    case PaneKey::PageUp: return vertically(top - page, -half);
    case PaneKey::PageDown: return vertically(bottom + page, half);
    case PaneKey::Home: return control ? 0 : places.PositionOf(place->block.Content(), line.start);
    case PaneKey::End:
        return control ? page_->Length() : places.PositionOf(place->block.Content(), line.end);
    case PaneKey::Space: break;
    }
    return std::nullopt;
}

TextPos PagePane::NextCharacter(TextPos position, bool forward) const {
    const std::u16string_view text = page_->Text();
    const TextPos from = std::max(0, position - clusterReach);
    const auto starts =
        ClusterStarts(text.substr(std::size_t(from), std::size_t(2 * clusterReach)));
    const auto behind = std::ranges::upper_bound(starts, position - from);
    if (forward) return behind == starts.end() ? page_->Length() : from + *behind;
    const auto at = std::ranges::lower_bound(starts, position - from);
    return at == starts.begin() ? 0 : from + *std::prev(at);
}

TextPos PagePane::NextWord(TextPos position, bool forward) const {
    const std::u16string& text = page_->Text();
    auto at = std::size_t(position);
    if (forward) {
        while (at < text.size() && !IsBlank(text[at]))
            ++at;
        while (at < text.size() && IsBlank(text[at]))
            ++at;
    } else {
        while (at > 0 && IsBlank(text[at - 1]))
            --at;
        while (at > 0 && !IsBlank(text[at - 1]))
            --at;
    }
    return TextPos(at);
}

// Of its text; nothing for one without a text.
std::optional<TextSpan> PagePane::LinkSpan(HtmlNodeId link) const {
    std::optional<TextSpan> span;
    const HtmlTree& tree = page_->Tree();
    for (HtmlNodeId id = link; id != noHtmlNode; id = tree.Next(id, link))
        if (const HtmlTextPiece* piece = page_->PieceOf(id)) {
            if (!span) span = TextSpan{piece->start, piece->end};
            span->end = piece->end;
        }
    return span;
}

// From the one before, or from what is at the top of the view.
bool PagePane::FocusLink(bool forward) {
    if (!UpdateLayout()) return false;
    const TextPos top = StartAtTop();
    const HtmlTree& tree = page_->Tree();
    HtmlNodeId found = noHtmlNode;
    bool passed = false;
    for (HtmlNodeId id = tree.Body(); id != noHtmlNode; id = tree.Next(id)) {
        if (id == focusedLink_) passed = true;
        if (id == focusedLink_ && !forward) break;
        if (id == focusedLink_ || LinkAround(id) != id) continue;
        const auto span = LinkSpan(id);
        if (!span || !PlaceOf(span->start)) continue;
        const bool isBehind = focusedLink_ == noHtmlNode ? span->start >= top : passed;
        if (forward && !isBehind) continue;
        if (!forward && focusedLink_ == noHtmlNode && isBehind) break;
        found = id;
        if (forward) break;
    }
    if (found == noHtmlNode) return false;
    focusedLink_ = found;
    Reveal(LinkSpan(found)->start);
    window_.Redraw();
    window_.OnObjectFocused();
    return true;
}

bool PagePane::FollowFocusedLink() {
    if (focusedLink_ == noHtmlNode || !onLink) return false;
    onLink(focusedLink_);
    return true;
}
