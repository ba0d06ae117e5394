#include "view/html/page_places.h"

#include <algorithm>
#include <limits>

namespace {
// Calls `visit` for all blocks of lines of a laid-out zone, with their corners.
template <class Visit>
void ForBlocks(const PageFragment& fragment, double left, double top, const Visit& visit,
               bool isPositioned = false) {
    for (const PlacedLines& lines : fragment.lines)
        if (!lines.layout.lines.empty()) visit(lines, left, top, isPositioned);
    for (const PlacedPart& part : fragment.parts)
        ForBlocks(*part.fragment, left + part.left, top + part.top, visit,
                  isPositioned || part.isPositioned);
}

TextPos EndOfOrigin(const InlineContent& content, std::size_t index) {
    const auto& origins = content.origins;
    return index + 1 < origins.size() ? origins[index + 1].start
                                      : TextPos(content.text.text.size());
}

// The marker of a list's item has none.
bool ShowsNodes(const InlineContent& content) {
    return std::ranges::any_of(
        content.origins, [](const InlineOrigin& origin) { return origin.node != noHtmlNode; });
}

bool Shows(const InlineContent& content, HtmlNodeId node) {
    return std::ranges::find(content.origins, node, &InlineOrigin::node) != content.origins.end();
}

// The unit that shows a unit of a node, or the nearest one; nothing where none of the node's is
// shown.
std::optional<TextPos> UnitShowing(const InlineContent& content, HtmlNodeId node,
                                   std::size_t unit) {
    std::optional<TextPos> nearest;
    for (std::size_t i = 0; i < content.origins.size(); ++i) {
        const InlineOrigin& origin = content.origins[i];
        if (origin.node != node) continue;
        if (origin.unit > unit) return nearest ? nearest : origin.start;
        const auto within = TextPos(std::min<std::size_t>(unit - origin.unit, 1 << 30));
        nearest = std::min(origin.start + within, EndOfOrigin(content, i));
    }
    return nearest;
}

std::size_t OriginOf(const InlineContent& content, TextPos unit) {
    const auto after = std::ranges::upper_bound(content.origins, unit, {}, &InlineOrigin::start);
    return after == content.origins.begin() ? 0 : std::size_t(after - content.origins.begin()) - 1;
}

// Of the letters of a line; where lines are closer than those are high, the line's.
void SetLetterBox(CharacterPlace& place) {
    const InlineLine& line = place.block.Line(place.line);
    const TextLine& letters = place.block.Piece(place.line).Line(line.line);
    const double top = std::max(line.baseline - letters.ascent, line.top);
    const double bottom = std::min(line.baseline + letters.descent, line.top + line.height);
    place.top = place.block.top + top;
    place.height = std::max(1.0, bottom - top);
}

double Outside(double at, double from, double to) {
    return at < from ? from - at : at > to ? at - to : 0;
}
} // namespace

std::size_t PlacedBlock::LineOf(TextPos unit) const {
    const auto& all = lines->layout.lines;
    const auto after = std::ranges::upper_bound(all, unit, {}, &InlineLine::start);
    return after == all.begin() ? 0 : std::size_t(after - all.begin()) - 1;
}

double PlacedBlock::CaretX(std::size_t line, TextPos unit) const {
    return left + Line(line).left + Piece(line).CaretX(Line(line).line, unit - PieceStart(line));
}

// The marker of a list's item is a block of that box, too, and shows nothing of the node.
std::optional<PlacedBlock> PagePlaces::FindBlock(PageBoxId box, HtmlNodeId node) {
    const std::size_t zone = shown_.Flow().ZoneOf(box);
    std::optional<PlacedBlock> found;
    const PageFragmentPtr fragment = shown_.Flow().LayOut(zone);
    ForBlocks(*fragment, 0, 0, [&](const PlacedLines& lines, double left, double top, bool) {
        if (!found && lines.box == box && Shows(*lines.content, node))
            found = PlacedBlock{zone, left, top, &lines, fragment};
    });
    return found;
}

std::optional<CharacterPlace> PagePlaces::PlaceIn(const HtmlTextPiece& piece, TextPos position) {
    const std::size_t unitOfNode = page_.UnitOf(piece, position);
    const PageBoxId box = shown_.BoxOf(piece.node, unitOfNode);
    if (box == noPageBox) return std::nullopt;
    auto block = FindBlock(box, piece.node);
    if (!block) return std::nullopt;
    const auto unit = UnitShowing(block->Content(), piece.node, unitOfNode);
    if (!unit) return std::nullopt;
    CharacterPlace place;
    place.block = std::move(*block);
    place.unit = *unit;
    place.line = place.block.LineOf(*unit);
    place.x = place.block.CaretX(place.line, *unit);
    SetLetterBox(place);
    return place;
}

// What is not shown stands where the text after it does; at the end, that before it.
std::optional<CharacterPlace> PagePlaces::PlaceOf(TextPos position) {
    const auto& pieces = page_.Counted().pieces;
    if (pieces.empty()) return std::nullopt;
    const std::size_t first = page_.PieceAt(position);
    for (std::size_t i = first; i < pieces.size(); ++i)
        if (auto place = PlaceIn(pieces[i], std::max(position, pieces[i].start))) return place;
    for (std::size_t i = first; i-- > 0;)
        if (auto place = PlaceIn(pieces[i], pieces[i].end)) return place;
    return std::nullopt;
}

TextPos PagePlaces::PositionOf(const InlineContent& content, TextPos unit) const {
    if (content.origins.empty()) return 0;
    const std::size_t first = OriginOf(content, unit);
    for (std::size_t i = first; i < content.origins.size(); ++i) {
        const InlineOrigin& origin = content.origins[i];
        const HtmlTextPiece* piece =
            origin.node == noHtmlNode ? nullptr : page_.PieceOf(origin.node);
        if (!piece) continue;
        const TextPos within = i == first ? std::max(0, unit - origin.start) : 0;
        return page_.PositionOf(*piece, origin.unit + std::size_t(within));
    }
    for (std::size_t i = first; i-- > 0;)
        if (content.origins[i].node != noHtmlNode)
            if (const HtmlTextPiece* piece = page_.PieceOf(content.origins[i].node))
                return piece->end;
    return 0;
}

HtmlNodeId PagePlaces::NodeAt(const InlineContent& content, TextPos unit) const {
    return content.origins.empty() ? noHtmlNode : content.origins[OriginOf(content, unit)].node;
}

// Of text from the point that it is nearest to: some screens of pictures, which take a layout each.
constexpr std::size_t maxZonesAway = 64;
// So far away what stands beside the text counts as the line at a height; device pixels.
constexpr double besideText = 1000;

std::optional<CharacterPlace> PagePlaces::NearestLine(std::size_t zone, double x, double y,
                                                      LineChoice choice) {
    PageFlow& flow = shown_.Flow();
    const bool below = choice == LineChoice::FromThere;
    std::optional<CharacterPlace> nearest;
    double minDistance = std::numeric_limits<double>::max();
    const auto lookInto = [&](std::size_t at, double offset) {
        const PageFragmentPtr fragment = flow.LayOut(at);
        const auto visit = [&](const PlacedLines& lines, double left, double top,
                               bool isPositioned) {
            if (!ShowsNodes(*lines.content)) return;
            for (std::size_t i = 0; i < lines.layout.lines.size(); ++i) {
                const InlineLine& line = lines.layout.lines[i];
                const double lineTop = offset + top + line.top;
                const TextLine& text = lines.layout.pieces[line.piece].lines->Line(line.line);
                const double from = left + line.left;
                double distance = Outside(y, lineTop, lineTop + line.height - 0.01) * 1e4 +
                                  Outside(x, from, from + text.width);
                if (below && lineTop + line.height <= y) distance += 1e12;
                if (below && isPositioned) distance += besideText * 1e4;
                if (distance > minDistance) continue; // what stands in a line comes after it
                minDistance = distance;
                nearest.emplace();
                nearest->block = {at, left, top, &lines, fragment};
                nearest->line = i;
            }
        };
        ForBlocks(*fragment, 0, 0, visit);
        return offset + fragment->height;
    };
    const double end = lookInto(zone, 0);
    // A zone that has no line there, such as a picture's, or one that ends at that height.
    double offset = end;
    const std::size_t lastZone = std::min(flow.ZoneCount(), zone + 1 + maxZonesAway);
    for (std::size_t next = zone + 1; next < lastZone && minDistance > 0; ++next) {
        if (minDistance < 1e12 && Outside(offset, y, y) * 1e4 > minDistance) break;
        offset = lookInto(next, offset);
    }
    double above = 0;
    const std::size_t firstZone = zone - std::min(zone, maxZonesAway);
    for (std::size_t before = zone; before-- > firstZone && minDistance > 0;) {
        if (minDistance < 1e12 && (y - above) * 1e4 > minDistance) break;
        above -= flow.HeightOf(before);
        lookInto(before, above);
    }
    if (nearest) {
        nearest->unit = nearest->block.Line(nearest->line).start;
        nearest->x = nearest->block.CaretX(nearest->line, nearest->unit);
        SetLetterBox(*nearest);
    }
    return nearest;
}

// The text of a missing picture and the marker of a list's item are none of the page's.
std::optional<TextSpan> PagePlaces::TextBetween(const PageFragment& zone, double top,
                                                double bottom) const {
    std::optional<TextSpan> text;
    ForBlocks(zone, 0, 0, [&](const PlacedLines& lines, double, double blockTop, bool) {
        const InlineContent& content = *lines.content;
        const bool hasText =
            std::ranges::any_of(content.origins, [this](const InlineOrigin& origin) {
                return origin.node != noHtmlNode && page_.PieceOf(origin.node);
            });
        if (!hasText) return;
        for (const InlineLine& line : lines.layout.lines) {
            const double lineTop = blockTop + line.top;
            if (lineTop >= bottom || lineTop + line.height <= top) continue;
            const TextSpan own{PositionOf(content, line.start), PositionOf(content, line.end)};
            text = text ? TextSpan{std::min(text->start, own.start), std::max(text->end, own.end)}
                        : own;
        }
    });
    return text;
}

TextPos PagePlaces::PositionInLine(const CharacterPlace& place, double x) const {
    const InlineLine& line = place.block.Line(place.line);
    const TextPos unit =
        place.block.Piece(place.line).PositionAt(line.line, x - place.block.left - line.left);
    return PositionOf(place.block.Content(), place.block.PieceStart(place.line) + unit);
}

TextPos PagePlaces::UnitInLine(const CharacterPlace& place, double x) const {
    const InlineLine& line = place.block.Line(place.line);
    const TextPos unit =
        place.block.Piece(place.line).CharacterAt(line.line, x - place.block.left - line.left);
    return place.block.PieceStart(place.line) + unit;
}

UnitSpan PagePlaces::SelectedUnits(const InlineContent& content, TextPos start, TextPos end) const {
    UnitSpan selected{std::numeric_limits<TextPos>::max(), 0};
    for (std::size_t i = 0; i < content.origins.size(); ++i) {
        const InlineOrigin& origin = content.origins[i];
        if (origin.node == noHtmlNode) continue;
        const HtmlTextPiece* piece = page_.PieceOf(origin.node);
        if (!piece || piece->end <= start) continue;
        if (piece->start >= end) break;
        const TextPos length = EndOfOrigin(content, i) - origin.start;
        const auto unitOf = [&](TextPos position) {
            const auto unit = std::int64_t(page_.UnitOf(*piece, position)) - origin.unit;
            return TextPos(std::clamp<std::int64_t>(unit, 0, length));
        };
        const TextPos from = start <= piece->start ? 0 : unitOf(start);
        const TextPos to = end >= piece->end ? length : unitOf(end);
        if (from >= to) continue;
        selected.start = std::min(selected.start, origin.start + from);
        selected.end = std::max(selected.end, origin.start + to);
    }
    return selected;
}

HtmlNodeId PictureAt(const PageFragment& fragment, const PageBoxes& boxes, double x, double y) {
    for (const PlacedImage& picture : fragment.pictures)
        if (x >= picture.left && x < picture.left + picture.width && y >= picture.top &&
            y < picture.top + picture.height)
            return boxes[picture.box].node;
    for (const PlacedPart& part : fragment.parts)
        if (const HtmlNodeId found = PictureAt(*part.fragment, boxes, x - part.left, y - part.top))
            return found;
    return noHtmlNode;
}
