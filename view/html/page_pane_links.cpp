// The links of a page: under the mouse, and by Tab and Enter.
#include "view/html/page_objects.h"
#include "view/html/page_pane.h"

#include <algorithm>

HtmlNodeId PagePane::LinkAt(Point point) {
    if (!UpdateLayout()) return noHtmlNode;
    const PagePlaces places(*page_, *shown_);
    const PageScroller::Top at = scroller_.At(point.y);
    const double x = point.x + scrollX_;
    if (const HtmlNodeId picture =
            PictureAt(*shown_->Flow().LayOut(at.zone), shown_->Boxes(), x, at.y))
        return LinkAround(page_->Tree(), picture);
    const auto line = LineAt(point, false);
    if (!line) return noHtmlNode;
    const InlineLine& box = line->block.Line(line->line);
    const double top = scroller_.InView(line->block.zone, line->LineTop());
    const double left = line->block.left + box.left;
    const double width = line->block.Piece(line->line).Line(box.line).width;
    if (point.y < top || point.y >= top + box.height || x < left || x >= left + width)
        return noHtmlNode;
    return LinkAround(page_->Tree(),
                      places.NodeAt(line->block.Content(), places.UnitInLine(*line, x)));
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
HtmlNodeId PagePane::NextLink(bool forward) {
    const TextPos top = StartAtTop();
    const HtmlTree& tree = page_->Tree();
    HtmlNodeId last = noHtmlNode;
    bool passed = false;
    for (HtmlNodeId id = tree.Body(); id != noHtmlNode; id = tree.Next(id)) {
        if (id == focusedLink_) passed = true;
        if (id == focusedLink_ || LinkAround(tree, id) != id) continue;
        const auto span = LinkSpan(id);
        if (!span) continue;
        const bool isAfter = focusedLink_ == noHtmlNode ? span->start >= top : passed;
        if (isAfter) return forward ? id : last;
        last = id;
    }
    return forward ? noHtmlNode : last;
}

bool PagePane::FocusLink(bool forward) {
    if (!UpdateLayout()) return false;
    const HtmlNodeId found = NextLink(forward);
    if (found == noHtmlNode || !PlaceOf(LinkSpan(found)->start)) return false;
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

void PagePane::FollowObject(std::size_t index) {
    const ReadingObjects& objects = Objects();
    if (index >= objects.size() || objects[index].kind != ReadingObjectKind::Link) return;
    if (onLink) onLink(objects[index].node);
}

std::size_t PagePane::FocusedObject() {
    const ReadingObjects& objects = Objects();
    const auto found = std::ranges::find_if(objects, [this](const ReadingObject& object) {
        return object.kind == ReadingObjectKind::Link && object.node == focusedLink_;
    });
    return found == objects.end() ? noReadingObject : std::size_t(found - objects.begin());
}
