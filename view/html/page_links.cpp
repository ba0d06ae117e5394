#include "view/html/page_links.h"

#include "view/html/page_objects.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {
// Of its text; nothing for one without a text.
std::optional<TextSpan> SpanOf(const LoadedPage& page, HtmlNodeId link) {
    std::optional<TextSpan> span;
    const HtmlTree& tree = page.Tree();
    for (HtmlNodeId id = link; id != noHtmlNode; id = tree.Next(id, link))
        if (const HtmlTextPiece* piece = page.PieceOf(id)) {
            if (!span) span = TextSpan{piece->start, piece->end};
            span->end = piece->end;
        }
    return span;
}

void PaintFrame(Canvas& canvas, const Rect& box, int thin, Color color) {
    canvas.FillRect({box.left, box.top, box.width, thin}, color);
    canvas.FillRect({box.left, Bottom(box) - thin, box.width, thin}, color);
    canvas.FillRect({box.left, box.top, thin, box.height}, color);
    canvas.FillRect({Right(box) - thin, box.top, thin, box.height}, color);
}
} // namespace

HtmlNodeId LinkAt(const PageViewport& view, Point point) {
    const HtmlTree& tree = view.page.Tree();
    const PageScroller::Top at = view.scroller.At(point.y);
    const double x = point.x + view.scrollX;
    const PageFragmentPtr fragment = view.shown.Flow().LayOut(at.zone);
    if (const HtmlNodeId picture = PictureAt(*fragment, view.shown.Boxes(), x, at.y))
        return LinkAround(tree, picture);
    const auto line = view.LineAt(point);
    if (!line) return noHtmlNode;
    const InlineLine& box = line->block.Line(line->line);
    const double top = view.scroller.InView(line->block.zone, line->LineTop());
    const double left = line->block.left + box.left;
    const double width = line->block.Piece(line->line).Line(box.line).width;
    if (point.y < top || point.y >= top + box.height || x < left || x >= left + width)
        return noHtmlNode;
    const PagePlaces places = view.Places();
    return LinkAround(tree, places.NodeAt(line->block.Content(), places.UnitInLine(*line, x)));
}

HtmlNodeId PageLinks::Next(const PageViewport& view, bool forward) const {
    const TextPos top = view.StartAtTop();
    const HtmlTree& tree = view.page.Tree();
    HtmlNodeId last = noHtmlNode;
    bool passed = false;
    for (HtmlNodeId id = tree.Body(); id != noHtmlNode; id = tree.Next(id)) {
        if (id == focused_) passed = true;
        if (id == focused_ || LinkAround(tree, id) != id) continue;
        const auto span = SpanOf(view.page, id);
        if (!span) continue;
        const bool isAfter = focused_ == noHtmlNode ? span->start >= top : passed;
        if (isAfter) return forward ? id : last;
        last = id;
    }
    return forward ? noHtmlNode : last;
}

std::optional<TextPos> PageLinks::FocusNext(const PageViewport& view, bool forward) {
    const HtmlNodeId found = Next(view, forward);
    if (found == noHtmlNode) return std::nullopt;
    const TextPos start = SpanOf(view.page, found)->start;
    if (!view.PlaceOf(start)) return std::nullopt;
    focused_ = found;
    return start;
}

std::size_t PageLinks::FocusedIn(const ReadingObjects& objects) const {
    const auto found = std::ranges::find_if(objects, [this](const ReadingObject& object) {
        return object.kind == ReadingObjectKind::Link && object.node == focused_;
    });
    return found == objects.end() ? noReadingObject : std::size_t(found - objects.begin());
}

// A frame around each line of it.
void PageLinks::PaintFocus(Canvas& canvas, const PageViewport& view, Color color) const {
    const auto span = focused_ != noHtmlNode ? SpanOf(view.page, focused_) : std::nullopt;
    const auto first = span ? view.PlaceOf(span->start) : std::nullopt;
    if (!first) return;
    const UnitSpan units =
        view.Places().SelectedUnits(first->block.Content(), span->start, span->end);
    const int thin = std::max(1, int(std::lround(view.Scale())));
    for (std::size_t i = first->line; i < first->block.lines->layout.lines.size(); ++i) {
        const InlineLine& line = first->block.Line(i);
        const TextPos from = std::max(units.start, line.start), to = std::min(units.end, line.end);
        if (from >= to) break;
        const TextPos start = first->block.PieceStart(i);
        const double top = view.scroller.InView(first->block.zone, first->block.top + line.top);
        for (const TextExtent& extent :
             first->block.Piece(i).Extents(line.line, from - start, to - start)) {
            const double left = first->block.left + line.left + extent.left - view.scrollX;
            PaintFrame(canvas,
                       {int(std::floor(left)) - thin, int(std::lround(top)),
                        int(std::ceil(extent.right - extent.left)) + 2 * thin,
                        int(std::lround(line.height))},
                       thin, color);
        }
    }
}

void PageLinks::Press(HtmlNodeId link) {
    focused_ = noHtmlNode;
    pressed_ = link;
}

bool PageLinks::KeepPressed(const PageViewport& view, Point point) {
    if (pressed_ != noHtmlNode && LinkAt(view, point) != pressed_) pressed_ = noHtmlNode;
    return pressed_ != noHtmlNode;
}

HtmlNodeId PageLinks::LetGo() {
    return std::exchange(pressed_, noHtmlNode);
}
