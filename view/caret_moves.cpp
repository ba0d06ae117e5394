#include "view/caret_moves.h"

#include <algorithm>

namespace {
// A paragraph of a laid-out block, and a caret position in it.
struct Place {
    TextLayouts::Layout layout;
    LineRef line;
    TextPos at = 0; // relative to the paragraph

    Place(TextLayouts& layouts, TextPos position)
        : layout(layouts.At(position)), line(LineOf(*layout, position)) {
        at = std::clamp(position, Paragraph().start, Paragraph().end) - Paragraph().start;
    }
    const ParagraphLayout& Paragraph() const { return layout->paragraphs[line.paragraph]; }
    const TextLines& Text() const { return *Paragraph().text; }
    TextPos Position(TextPos inParagraph) const { return Paragraph().start + inParagraph; }
};

bool RightToLeft(const Place& place) {
    return place.Paragraph().rightToLeft;
}

using Step = TextPos (TextLines::*)(TextPos) const;

// Before the last character or word if no paragraph break follows: the position after it belongs
// to the next part.
TextPos LastPosition(const ParagraphLayout& paragraph, TextPos nextStart, Step back) {
    if (paragraph.end < nextStart || paragraph.end == paragraph.start) return paragraph.end;
    return paragraph.start + (paragraph.text.get()->*back)(paragraph.end - paragraph.start);
}

TextPos NextParagraph(TextLayouts& layouts, const Place& place) {
    const std::size_t next = place.line.paragraph + 1;
    if (next < place.layout->paragraphs.size()) return place.layout->paragraphs[next].start;
    const auto after = layouts.After(place.layout);
    return after ? after->block.start : place.Paragraph().end;
}

TextPos PreviousParagraph(TextLayouts& layouts, const Place& place,
                          Step back = &TextLines::PreviousPosition) {
    const TextPos start = place.Paragraph().start;
    if (place.line.paragraph > 0)
        return LastPosition(place.layout->paragraphs[place.line.paragraph - 1], start, back);
    const auto before = layouts.Before(place.layout);
    return before ? LastPosition(before->paragraphs.back(), start, back) : start;
}

TextPos NextWord(TextLayouts& layouts, const Place& place) {
    const TextPos to = place.Text().NextWord(place.at);
    return to == place.at ? NextParagraph(layouts, place) : place.Position(to);
}

TextPos PreviousWord(TextLayouts& layouts, const Place& place) {
    const TextPos to = place.Text().PreviousWord(place.at);
    return to == place.at ? PreviousParagraph(layouts, place, &TextLines::PreviousWord)
                          : place.Position(to);
}

// Moves by `step` lines within the same cell; false if there is none.
bool StepLine(Place& place, int step) {
    const int line = place.line.line + step;
    if (line >= 0 && line < place.Paragraph().LineCount()) {
        place.line.line = line;
        return true;
    }
    const auto& all = place.layout->paragraphs;
    const std::size_t other = place.line.paragraph + std::size_t(step); // wraps below 0
    if (other >= all.size() || all[other].cell != place.Paragraph().cell) return false;
    place.line = {other, step > 0 ? 0 : all[other].LineCount() - 1};
    return true;
}
} // namespace

TextPos CaretLeft(TextLayouts& layouts, TextPos position) {
    const Place place(layouts, position);
    const TextPos to = place.Text().LeftOf(place.at);
    if (to != place.at) return place.Position(to);
    return RightToLeft(place) ? NextParagraph(layouts, place) : PreviousParagraph(layouts, place);
}

TextPos CaretRight(TextLayouts& layouts, TextPos position) {
    const Place place(layouts, position);
    const TextPos to = place.Text().RightOf(place.at);
    if (to != place.at) return place.Position(to);
    return RightToLeft(place) ? PreviousParagraph(layouts, place) : NextParagraph(layouts, place);
}

TextPos WordLeft(TextLayouts& layouts, TextPos position) {
    const Place place(layouts, position);
    return RightToLeft(place) ? NextWord(layouts, place) : PreviousWord(layouts, place);
}

TextPos WordRight(TextLayouts& layouts, TextPos position) {
    const Place place(layouts, position);
    return RightToLeft(place) ? PreviousWord(layouts, place) : NextWord(layouts, place);
}

TextPos CaretUp(TextLayouts& layouts, TextPos position, int x) {
    Place place(layouts, position);
    if (StepLine(place, -1)) return PositionInLine(*place.layout, place.line, x);
    const int top =
        place.layout->cells.empty() ? 0 : place.layout->cells[place.Paragraph().cell].box.top;
    if (top > 0) return PositionAt(*place.layout, {x, top - 1});
    const auto before = layouts.Before(place.layout);
    return before ? PositionAt(*before, {x, before->height - 1}) : position;
}

TextPos CaretDown(TextLayouts& layouts, TextPos position, int x) {
    Place place(layouts, position);
    if (StepLine(place, 1)) return PositionInLine(*place.layout, place.line, x);
    const int bottom = CellBottom(*place.layout, place.Paragraph().cell);
    if (bottom < place.layout->height) return PositionAt(*place.layout, {x, bottom});
    const auto after = layouts.After(place.layout);
    return after ? PositionAt(*after, {x, 0}) : position;
}

// By the breaks of the text: a long paragraph is laid out as several.
TextPos ParagraphUp(TextLayouts& layouts, TextPos position) {
    return layouts.Text().LastBreak(0, position - 1) + 1;
}

TextPos ParagraphDown(TextLayouts& layouts, TextPos position) {
    const TextSource& text = layouts.Text();
    const TextPos end = text.FirstBreak(position, text.Length());
    return end < 0 ? text.Length() : end + 1;
}

TextPos CaretHome(TextLayouts& layouts, TextPos position) {
    const Place place(layouts, position);
    return LineStart(*place.layout, place.line);
}

TextPos CaretEnd(TextLayouts& layouts, TextPos position) {
    const Place place(layouts, position);
    return place.Paragraph().LastCaretPosition(place.line.line);
}

TextSpan WordAround(TextLayouts& layouts, TextPos position) {
    const Place place(layouts, position);
    const CharSpan word = place.Text().WordAt(place.at);
    return {place.Position(word.start), place.Position(word.start + word.length)};
}

TextSpan ParagraphAround(TextLayouts& layouts, TextPos position) {
    const Place place(layouts, position);
    TextSpan span{place.Paragraph().start, place.Paragraph().end};
    const TextSource& text = layouts.Text();
    if (span.end < text.Length() && text.UnitAt(span.end) == u'\n') ++span.end;
    return span;
}
