#include "platform/qt/text_view/caret_moves.h"

#include <QTextBoundaryFinder>

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
    QTextLayout& Text() const { return *Paragraph().text; }
    TextPos Position(int inParagraph) const { return Paragraph().start + inParagraph; }
};

bool RightToLeft(const Place& place) {
    return place.Paragraph().IsRightToLeft();
}

// Before the last character or word if no paragraph break follows: the position behind it belongs
// to the next part.
TextPos LastPosition(const ParagraphLayout& paragraph, TextPos nextStart,
                     QTextLayout::CursorMode mode) {
    if (paragraph.end < nextStart || paragraph.end == paragraph.start) return paragraph.end;
    const int length = paragraph.end - paragraph.start;
    return paragraph.start + paragraph.text->previousCursorPosition(length, mode);
}

TextPos NextParagraph(TextLayouts& layouts, const Place& place) {
    const std::size_t next = place.line.paragraph + 1;
    if (next < place.layout->paragraphs.size()) return place.layout->paragraphs[next].start;
    const auto after = layouts.After(place.layout);
    return after ? after->block.start : place.Paragraph().end;
}

TextPos PreviousParagraph(TextLayouts& layouts, const Place& place,
                          QTextLayout::CursorMode mode = QTextLayout::SkipCharacters) {
    const TextPos start = place.Paragraph().start;
    if (place.line.paragraph > 0)
        return LastPosition(place.layout->paragraphs[place.line.paragraph - 1], start, mode);
    const auto before = layouts.Before(place.layout);
    return before ? LastPosition(before->paragraphs.back(), start, mode) : start;
}

// A word boundary may be within a grapheme cluster (a space with a mark): then the cluster's end.
TextPos Forward(TextLayouts& layouts, const Place& place, QTextLayout::CursorMode mode) {
    const int to = place.Text().nextCursorPosition(place.at, mode);
    if (to == place.at) return NextParagraph(layouts, place);
    const bool whole = place.Text().isValidCursorPosition(to);
    return whole ? place.Position(to) : place.Paragraph().NextCaretPosition(place.Position(to));
}

TextPos Backward(TextLayouts& layouts, const Place& place, QTextLayout::CursorMode mode) {
    const int to = place.Text().previousCursorPosition(place.at, mode);
    if (to == place.at) return PreviousParagraph(layouts, place, mode);
    const bool whole = place.Text().isValidCursorPosition(to);
    return whole ? place.Position(to) : place.Paragraph().PreviousCaretPosition(place.Position(to));
}

using Step = int (QTextLayout::*)(int) const;

// QTextLayout does not move out of a line that consists of a line separator only.
TextPos BesideLine(const Place& place, TextPos from, bool forward) {
    const ParagraphLayout& paragraph = place.Paragraph();
    const int line = place.line.line;
    if (forward) return line + 1 < paragraph.LineCount() ? paragraph.LineEnd(line) : from;
    return line > 0 ? paragraph.LastCaretPosition(line - 1) : from;
}

// In bidirectional text QTextLayout ignores trailing spaces, and stops within grapheme clusters.
TextPos SideStep(const Place& place, Step step, bool forward) {
    const ParagraphLayout& paragraph = place.Paragraph();
    const TextPos from = paragraph.start + place.at;
    const TextPos spaces = paragraph.TrailingSpacesStart(place.line.line);
    if (from >= spaces)
        return forward ? paragraph.NextCaretPosition(from) : paragraph.PreviousCaretPosition(from);
    int at = place.at;
    do {
        const int to = (place.Text().*step)(at);
        if (to == at) return BesideLine(place, from, forward);
        at = to;
    } while (!place.Text().isValidCursorPosition(at));
    const TextPos to = paragraph.start + at;
    if (to >= paragraph.LineEnd(place.line.line)) return std::min(to, spaces);
    if (to >= paragraph.LineStart(place.line.line)) return to;
    const int above = place.line.line - 1;
    return paragraph.TrailingSpacesStart(above) < from ? paragraph.LastCaretPosition(above) : to;
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
    const TextPos to = SideStep(place, &QTextLayout::leftCursorPosition, RightToLeft(place));
    if (to != place.Position(place.at)) return to;
    return RightToLeft(place) ? NextParagraph(layouts, place) : PreviousParagraph(layouts, place);
}

TextPos CaretRight(TextLayouts& layouts, TextPos position) {
    const Place place(layouts, position);
    const TextPos to = SideStep(place, &QTextLayout::rightCursorPosition, !RightToLeft(place));
    if (to != place.Position(place.at)) return to;
    return RightToLeft(place) ? PreviousParagraph(layouts, place) : NextParagraph(layouts, place);
}

TextPos WordLeft(TextLayouts& layouts, TextPos position) {
    const Place place(layouts, position);
    return RightToLeft(place) ? Forward(layouts, place, QTextLayout::SkipWords)
                              : Backward(layouts, place, QTextLayout::SkipWords);
}

TextPos WordRight(TextLayouts& layouts, TextPos position) {
    const Place place(layouts, position);
    return RightToLeft(place) ? Backward(layouts, place, QTextLayout::SkipWords)
                              : Forward(layouts, place, QTextLayout::SkipWords);
}

TextPos CaretUp(TextLayouts& layouts, TextPos position, int x) {
    Place place(layouts, position);
    if (StepLine(place, -1)) return PositionInLine(*place.layout, place.line, x);
    const int top =
        place.layout->cells.empty() ? 0 : place.layout->cells[place.Paragraph().cell].box.top();
    if (top > 0) return PositionAt(*place.layout, QPoint(x, top - 1));
    const auto before = layouts.Before(place.layout);
    return before ? PositionAt(*before, QPoint(x, before->height - 1)) : position;
}

TextPos CaretDown(TextLayouts& layouts, TextPos position, int x) {
    Place place(layouts, position);
    if (StepLine(place, 1)) return PositionInLine(*place.layout, place.line, x);
    const int bottom = CellBottom(*place.layout, place.Paragraph().cell);
    if (bottom < place.layout->height) return PositionAt(*place.layout, QPoint(x, bottom));
    const auto after = layouts.After(place.layout);
    return after ? PositionAt(*after, QPoint(x, 0)) : position;
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
    QTextBoundaryFinder finder(QTextBoundaryFinder::Word, place.Text().text());
    finder.setPosition(place.at);
    const qsizetype length = place.Text().text().size();
    const qsizetype from =
        finder.isAtBoundary() && place.at < length ? place.at : finder.toPreviousBoundary();
    const qsizetype to = finder.toNextBoundary();
    return {place.Position(int(std::max<qsizetype>(from, 0))),
            place.Position(int(to < 0 ? length : to))};
}

TextSpan ParagraphAround(TextLayouts& layouts, TextPos position) {
    const Place place(layouts, position);
    const auto& all = place.layout->paragraphs;
    std::size_t first = place.line.paragraph, last = first;
    while (first > 0 && all[first - 1].continues)
        --first;
    while (last + 1 < all.size() && all[last].continues)
        ++last;
    TextSpan span{all[first].start, all[last].end};
    const TextSource& text = layouts.Text();
    if (span.end < text.Length() && text.UnitAt(span.end) == u'\n') ++span.end;
    return span;
}
