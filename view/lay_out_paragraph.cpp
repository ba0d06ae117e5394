// Places the lines of a paragraph.
#include "common/utf.h"
#include "view/capitals.h"
#include "view/layout_cost.h"
#include "view/paragraph_layout.h"
#include "view/paragraph_shape.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr char16_t lineSeparator = u'\u2028';

// The first picture at or after a position.
template <class Pictures>
auto FirstFrom(const Pictures& pictures, TextPos position) {
    return std::lower_bound(pictures.begin(), pictures.end(), position,
                            [](const auto& picture, TextPos at) { return picture.position < at; });
}

// One unit for each unit of the document.
std::u16string LayoutText(const LayoutContext& context, const ParagraphPart& part) {
    std::u16string text = context.text->Range(part.start, part.end);
    for (char16_t& unit : text)
        if (unit == u'\v' || (unit == u'\a' && !context.plain)) unit = lineSeparator;
    TruncateClusters(text);
    return text;
}

std::vector<PlacedPicture> PlacePictures(const LayoutContext& context, const ParagraphPart& part,
                                         int width) {
    std::vector<PlacedPicture> placed;
    const auto& all = context.document.pictures;
    auto picture = FirstFrom(all, part.start);
    for (; picture != all.end() && picture->position < part.end; ++picture)
        placed.push_back({picture->position, PictureSize(context, *picture, width)});
    return placed;
}

ParagraphText TextOf(const LayoutContext& context, const ParagraphShape& shape,
                     const ParagraphLayout& paragraph, std::u16string text) {
    ParagraphText result;
    if (context.plain)
        result.runs = {{0, context.styles.Plain().handle}};
    else
        result.runs = StyledRuns(context, paragraph.start, text);
    for (const PlacedPicture& picture : paragraph.pictures)
        result.boxes.push_back({picture.position - paragraph.start, picture.size.width});
    result.text = std::move(text);
    result.rightToLeft = shape.rightToLeft;
    result.justified = shape.justified;
    result.width = std::max(1, shape.breakWidth - shape.endIndent);
    result.firstIndent = shape.firstIndent;
    result.indent = shape.indent;
    result.tabStops = shape.tabStops;
    result.tabDistance = shape.tabDistance;
    return result;
}

int MaxPictureHeight(const ParagraphLayout& paragraph, const TextLine& line) {
    const TextPos from = paragraph.start + line.start, to = paragraph.start + line.end;
    int maxHeight = 0;
    auto picture = FirstFrom(paragraph.pictures, from);
    for (; picture != paragraph.pictures.end() && picture->position < to; ++picture)
        maxHeight = std::max(maxHeight, picture->size.height);
    return maxHeight;
}

// The distance of the line's text from the paragraph's left edge.
int LineLeft(const ParagraphShape& shape, const TextLine& line, bool first) {
    const int indent = first ? shape.firstIndent : shape.indent;
    const int edge = shape.rightToLeft ? shape.endIndent : indent;
    if (line.justified) return edge;
    const int room = shape.alignWidth - indent - shape.endIndent - int(std::ceil(line.width));
    return edge + shape.AlignmentShift(std::max(0, room));
}

void PlaceLines(const ParagraphShape& shape, ParagraphLayout& paragraph) {
    int top = shape.spaceBefore;
    for (int i = 0; i < paragraph.text->Count(); ++i) {
        const TextLine& line = paragraph.text->Line(i);
        const int left = LineLeft(shape, line, i == 0);
        const int ascent = std::max(int(std::ceil(line.ascent)), MaxPictureHeight(paragraph, line));
        const int descent = int(std::ceil(line.descent));
        const int leading = std::max(0, int(std::lround(line.leading)));
        const int height = shape.LineHeight(ascent + descent + leading);
        paragraph.lines.push_back({i == 0 ? 0 : top, left, top + height - descent});
        paragraph.width = std::max(paragraph.width, left + int(std::ceil(line.width)));
        top += height;
    }
    paragraph.height = top + paragraph.spaceAfter;
}
} // namespace

ParagraphLayout LayOutParagraph(const LayoutContext& context, const ParagraphPart& part) {
    std::u16string text = LayoutText(context, part);
    const ParagraphShape shape = ShapeOf(context, part, text);
    ParagraphLayout result;
    result.start = part.start;
    result.end = part.end;
    result.continues = !part.last;
    result.rightToLeft = shape.rightToLeft;
    result.spaceBefore = shape.spaceBefore;
    result.spaceAfter = shape.spaceAfter;
    result.box = shape.box;
    result.pictures = PlacePictures(context, part, shape.TextWidth());
    const ParagraphText prepared = TextOf(context, shape, result, std::move(text));
    result.runs = prepared.runs.size();
    result.text = context.lines.BreakLines(prepared);
    PlaceLines(shape, result);
    return result;
}
