#include "tests/contract/reference_view/reference_paragraph.h"

#include "common/text.h"
#include "tests/contract/reference_view/reference_shape.h"
#include "tests/contract/reference_view/reference_style.h"
#include "view/capitals.h"

#include <algorithm>
#include <cmath>

namespace {
struct Placed {
    TextPos position = 0; // in the layout
    Size size;
};

bool IsSmall(const ReferenceSettings& settings, const CharStyle& style, TextPos at) {
    return style.capitals == Capitals::Small && HasCapital(settings.text[std::size_t(at)]);
}

char16_t Shown(const ReferenceSettings& settings, char16_t unit, Capitals capitals) {
    if (unit == u'\v' || (unit == u'\a' && !settings.plain)) return u'\u2028';
    return capitals != Capitals::AsWritten && HasCapital(unit) ? FoldCase(unit) : unit;
}

// Each character has a run of its own where its style is another one.
void AddText(const ReferenceSettings& settings, const ReferencePart& part,
             ParagraphText& paragraph) {
    std::optional<TextStyle> last;
    const auto start = [&](TextPos at, const TextStyle& style) {
        if (last != style)
            paragraph.runs.push_back({at - part.start, settings.lines->Prepare(style)});
        last = style;
    };
    const CharStyle plain;
    for (TextPos at = part.start; at < part.end; ++at) {
        const CharStyle& style =
            settings.plain ? plain : ReferenceCharStyle(*settings.document, at);
        start(at, ReferenceTextStyle(settings, style, IsSmall(settings, style, at)));
        paragraph.text += Shown(settings, settings.text[std::size_t(at)], style.capitals);
    }
    const CharStyle& after =
        settings.plain ? plain : ReferenceCharStyle(*settings.document, part.end);
    start(part.end, ReferenceTextStyle(settings, after, false));
}

int SlotLeft(const ReferenceShape& shape, const ReferencePart& part, const TextLine& line,
             bool first) {
    const int indent = first ? shape.firstIndent : shape.indent;
    const int edge = shape.rightToLeft ? shape.endIndent : indent;
    if (line.justified) return edge;
    const int room =
        std::max(0, part.alignWidth - indent - shape.endIndent - int(std::ceil(line.width)));
    if (shape.alignment == Alignment::Center) return edge + room / 2;
    if (shape.alignment == Alignment::Right) return edge + room;
    return edge + (shape.alignment == Alignment::Justified && shape.rightToLeft ? room : 0);
}

void PlaceSlots(const ReferenceSettings& settings, const ReferencePart& part,
                const ReferenceShape& shape, const std::vector<Placed>& pictures,
                ReferenceLayout& out) {
    int top = shape.before;
    for (int i = 0; i < out.text->Count(); ++i) {
        const TextLine& line = out.text->Line(i);
        int ascent = int(std::ceil(line.ascent));
        for (const Placed& placed : pictures)
            if (placed.position >= line.start && placed.position < line.end)
                ascent = std::max(ascent, placed.size.height);
        const int descent = int(std::ceil(line.descent));
        const int leading = std::max(0, int(std::lround(line.leading)));
        const int height = shape.SlotHeight(settings, ascent + descent + leading);
        out.places.push_back(
            {line.start, top, height, SlotLeft(shape, part, line, i == 0), top + height - descent});
        top += height;
    }
    out.height = top + shape.after;
}
} // namespace

ReferenceLayout LayOutReferencePart(const ReferenceSettings& settings, const ReferencePart& part) {
    const ReferenceShape shape = ReferenceShapeOf(settings, part);
    const int textWidth =
        std::max(1, part.alignWidth - std::max(shape.indent, shape.firstIndent) - shape.endIndent);
    ParagraphText paragraph;
    AddText(settings, part, paragraph);
    std::vector<Placed> pictures;
    for (const Picture& picture : settings.document->pictures) {
        if (picture.position < part.start || picture.position >= part.end) continue;
        const Size size = ReferencePictureSize(settings, picture, textWidth);
        pictures.push_back({picture.position - part.start, size});
        paragraph.boxes.push_back({picture.position - part.start, size.width});
    }
    paragraph.rightToLeft = shape.rightToLeft;
    paragraph.justified = shape.stretches;
    paragraph.width = std::max(1, part.breakWidth - shape.endIndent);
    paragraph.firstIndent = shape.firstIndent;
    paragraph.indent = shape.indent;
    paragraph.tabStops = shape.tabStops;
    paragraph.tabDistance = shape.tabDistance;

    ReferenceLayout out;
    out.start = part.start;
    out.end = part.end;
    out.rightToLeft = shape.rightToLeft;
    out.text = settings.lines->BreakLines(paragraph);
    PlaceSlots(settings, part, shape, pictures, out);
    return out;
}
