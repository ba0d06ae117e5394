// Where the characters of a page are in the view, and its pictures and links.
#include "view/html/readable_page.h"

#include <algorithm>

namespace {
// The part of the box that is in the view; empty where none is.
Rect Within(const Rect& box, Size view) {
    return Intersection(box, {0, 0, view.width, view.height});
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

std::optional<Rect> PictureRect(const PageViewport& view, HtmlNodeId picture) {
    const PageBoxId box = view.shown.BoxOf(picture);
    if (box == noPageBox) return std::nullopt;
    const std::size_t zone = view.shown.Flow().ZoneOf(box);
    const auto found = FindPicture(*view.shown.Flow().LayOut(zone), box);
    if (!found) return std::nullopt;
    return Rect{Rounded(found->left) - view.scrollX,
                Rounded(view.scroller.InView(zone, found->top)), Rounded(found->width),
                Rounded(found->height)};
}
} // namespace

TextPos ReadablePage::CharacterAtPoint(Point point) {
    const auto view = Viewport();
    const auto line = view ? view->LineAt(point) : std::nullopt;
    if (!line) return 0;
    const PagePlaces places = view->Places();
    return places.PositionOf(line->block.Content(),
                             places.UnitInLine(*line, point.x + view->scrollX));
}

Rect ReadablePage::CharacterRect(TextPos position) {
    const auto view = Viewport();
    const auto place = view ? view->PlaceOf(position) : std::nullopt;
    if (!place) return {};
    double left = place->x, right = place->x;
    const InlineLine& line = place->block.Line(place->line);
    const TextPos unit = place->unit - place->block.PieceStart(place->line);
    for (const TextExtent& extent :
         place->block.Piece(place->line).Extents(line.line, unit, unit + 1)) {
        left = place->block.left + line.left + extent.left;
        right = place->block.left + line.left + extent.right;
    }
    return {Rounded(left) - view->scrollX, Rounded(view->TopOf(*place)),
            std::max(1, Rounded(right - left)), Rounded(place->height)};
}

TextSpan ReadablePage::VisibleText() {
    const auto view = Viewport();
    if (!view) return {};
    const PagePlaces places = view->Places();
    PageFlow& flow = view->shown.Flow();
    const double height = view->size.height;
    std::optional<TextSpan> all;
    const PageScroller::Top& top = view->scroller.Position();
    double y = -top.y;
    for (std::size_t zone = top.zone; zone < flow.ZoneCount() && y < height; ++zone) {
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
std::vector<Rect> ReadablePage::VisibleBoxes(TextSpan span) {
    std::vector<Rect> boxes;
    const auto view = Viewport();
    if (!view) return boxes;
    const TextSpan visible = VisibleText();
    const TextPos end = std::min(span.end, visible.end);
    for (TextPos at = std::max(span.start, visible.start); at < end;) {
        const TextSpan text = ReadingLine(at);
        const TextPos to = std::min(end, text.end);
        if (const auto place = view->PlaceOf(at)) {
            const InlineLine& line = place->block.Line(place->line);
            const UnitSpan units = view->Places().SelectedUnits(place->block.Content(), at, to);
            const TextPos first = place->block.PieceStart(place->line);
            std::optional<Rect> box;
            for (const TextExtent& extent :
                 place->block.Piece(place->line)
                     .Extents(line.line, std::max(units.start, line.start) - first,
                              std::min(units.end, line.end) - first)) {
                const double left = place->block.left + line.left + extent.left - view->scrollX;
                const Rect part{Rounded(left), Rounded(view->TopOf(*place)),
                                std::max(1, Rounded(extent.right - extent.left)),
                                Rounded(place->height)};
                box = box ? Joined(*box, part) : part;
            }
            const Rect inView = box ? Within(*box, view->size) : Rect{};
            if (inView.width > 0 && inView.height > 0) boxes.push_back(inView);
        }
        at = std::max(to, at + 1);
    }
    return boxes;
}

Rect ReadablePage::ObjectRect(std::size_t index) {
    const ReadingObjects& objects = Objects();
    const auto view = Viewport();
    if (index >= objects.size() || !view) return {};
    const ReadingObject& object = objects[index];
    if (object.kind == ReadingObjectKind::Picture) {
        const auto box = PictureRect(*view, object.node);
        return box ? Within(*box, view->size) : Rect{};
    }
    std::optional<Rect> all;
    for (const Rect& box : VisibleBoxes(object.span))
        all = all ? Joined(*all, box) : box;
    // A link may have nothing but a picture in it.
    for (std::size_t i = index + 1; i < object.end && !all; ++i)
        if (objects[i].kind == ReadingObjectKind::Picture) all = ObjectRect(i);
    return all.value_or(Rect{});
}
