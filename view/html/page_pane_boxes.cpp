// Where the characters of a page are in the view, and its pictures and links.
#include "view/html/page_pane.h"

#include <algorithm>

namespace {
// The part of the box that is in the view; empty where none is.
Rect Within(const Rect& box, Size view) {
    const int left = std::clamp(box.left, 0, view.width), top = std::clamp(box.top, 0, view.height);
    return {left, top, std::clamp(Right(box), left, view.width) - left,
            std::clamp(Bottom(box), top, view.height) - top};
}

Rect Joined(const Rect& a, const Rect& b) {
    const int left = std::min(a.left, b.left), top = std::min(a.top, b.top);
    return {left, top, std::max(Right(a), Right(b)) - left, std::max(Bottom(a), Bottom(b)) - top};
}

// With the corner of its zone. Where the picture is missing its place is that of its alternative
// text.
std::optional<PlacedImage> FindPicture(const PageFragment& fragment, PageBoxId box) {
    for (const PlacedImage& picture : fragment.pictures)
        if (picture.box == box) return picture;
    for (const PlacedLines& lines : fragment.lines) {
        if (lines.box != box || lines.layout.lines.empty()) continue;
        const InlineLine& first = lines.layout.lines.front();
        const double width = lines.layout.pieces[first.piece].lines->Line(first.line).width;
        return PlacedImage{box, first.left, first.top, width, lines.layout.bottom - first.top};
    }
    for (const PlacedPart& part : fragment.parts)
        if (auto found = FindPicture(*part.fragment, box)) {
            found->left += part.left;
            found->top += part.top;
            return found;
        }
    return std::nullopt;
}
} // namespace

TextPos PagePane::CharacterAtPoint(Point point) {
    if (!UpdateLayout()) return 0;
    const auto line = LineAt(point, false);
    if (!line) return 0;
    const PagePlaces places(*page_, *shown_);
    return places.PositionOf(line->block.Content(), places.UnitInLine(*line, point.x + scrollX_));
}

Rect PagePane::CharacterRect(TextPos position) {
    const auto place = UpdateLayout() ? PlaceOf(position) : std::nullopt;
    if (!place) return {};
    double left = place->x, right = place->x;
    const InlineLine& line = place->block.Line(place->line);
    const TextPos unit = place->unit - place->block.PieceStart(place->line);
    for (const TextExtent& extent :
         place->block.Piece(place->line).Extents(line.line, unit, unit + 1)) {
        left = place->block.left + line.left + extent.left;
        right = place->block.left + line.left + extent.right;
    }
    return {Rounded(left) - scrollX_, Rounded(scroller_.InView(place->block.zone, place->top)),
            std::max(1, Rounded(right - left)), Rounded(place->height)};
}

TextSpan PagePane::VisibleText() {
    if (!UpdateLayout()) return {};
    const PagePlaces places(*page_, *shown_);
    PageFlow& flow = shown_->Flow();
    const double height = look_.viewport.height;
    std::optional<TextSpan> all;
    double y = -scroller_.Position().y;
    for (std::size_t zone = scroller_.Position().zone; zone < flow.ZoneCount() && y < height;
         ++zone) {
        const PageFragmentPtr fragment = flow.LayOut(zone);
        if (const auto text = places.TextBetween(*fragment, -y, height - y))
            all = all ? TextSpan{std::min(all->start, text->start), std::max(all->end, text->end)}
                      : *text;
        y += fragment->height;
    }
    if (!all) return {};
    return {all->start, ReadingLine(std::max(all->start, all->end - 1)).end};
}

// Line by line: each has its part of the span in one stretch, or in several where its directions
// change.
std::vector<Rect> PagePane::VisibleBoxes(TextSpan span) {
    std::vector<Rect> boxes;
    const TextSpan visible = VisibleText();
    const TextPos end = std::min(span.end, visible.end);
    for (TextPos at = std::max(span.start, visible.start); at < end;) {
        const TextSpan text = ReadingLine(at);
        const TextPos to = std::min(end, text.end);
        if (const auto place = PlaceOf(at)) {
            const InlineLine& line = place->block.Line(place->line);
            const UnitSpan units =
                PagePlaces(*page_, *shown_).SelectedUnits(place->block.Content(), at, to);
            const TextPos first = place->block.PieceStart(place->line);
            std::optional<Rect> box;
            for (const TextExtent& extent :
                 place->block.Piece(place->line)
                     .Extents(line.line, std::max(units.start, line.start) - first,
                              std::min(units.end, line.end) - first)) {
                const double left = place->block.left + line.left + extent.left - scrollX_;
                const Rect part{
                    Rounded(left), Rounded(scroller_.InView(place->block.zone, place->top)),
                    std::max(1, Rounded(extent.right - extent.left)), Rounded(place->height)};
                box = box ? Joined(*box, part) : part;
            }
            const Rect seen = box ? Within(*box, look_.viewport) : Rect{};
            if (seen.width > 0 && seen.height > 0) boxes.push_back(seen);
        }
        at = std::max(to, at + 1);
    }
    return boxes;
}

std::optional<Rect> PagePane::PictureRect(HtmlNodeId picture) {
    const PageBoxId box = shown_->BoxOf(picture);
    if (box == noPageBox) return std::nullopt;
    const std::size_t zone = shown_->ZoneOf(box);
    const auto found = FindPicture(*shown_->Flow().LayOut(zone), box);
    if (!found) return std::nullopt;
    return Rect{Rounded(found->left) - scrollX_, Rounded(scroller_.InView(zone, found->top)),
                Rounded(found->width), Rounded(found->height)};
}

Rect PagePane::ObjectRect(std::size_t index) {
    const ReadingObjects& objects = Objects();
    if (index >= objects.size() || !UpdateLayout()) return {};
    const ReadingObject& object = objects[index];
    if (object.kind == ReadingObjectKind::Picture) {
        const auto box = PictureRect(object.node);
        return box ? Within(*box, look_.viewport) : Rect{};
    }
    std::optional<Rect> all;
    for (const Rect& box : VisibleBoxes(object.span))
        all = all ? Joined(*all, box) : box;
    // A link may have nothing but a picture in it.
    for (std::size_t i = index + 1; i < object.end && !all; ++i)
        if (objects[i].kind == ReadingObjectKind::Picture) all = ObjectRect(i);
    return all.value_or(Rect{});
}
