// Compares lines and positions.
#include "tests/contract/reference_view/reference_comparison.h"

#include "common/utf.h"
#include "formats/rtf/rtf_reader.h"

#include <doctest/doctest.h>

#include <cstdlib>

namespace {
std::string Describe(const Rect& box) {
    return std::to_string(box.left) + ", " + std::to_string(box.top) + ", " +
           std::to_string(box.height) + " high";
}
} // namespace

void ReferenceComparison::CheckPlace() {
    REQUIRE(view_.TextLength() == Length());
    REQUIRE(Pane().Caret() == reference_.caret);
    REQUIRE(view_.SelStart() == std::min(reference_.anchor, reference_.caret));
    REQUIRE(view_.SelStart() + view_.SelLength() == std::max(reference_.anchor, reference_.caret));
    const ReferenceParagraph& around =
        Reference().ParagraphOf(Reference().LineOf(reference_.caret));
    const TextPos at = std::min(reference_.caret, around.end) - around.start;
    INFO("caret ", reference_.caret, " of ", around.start, " to ", around.end, ", lines from",
         reference_.Describe(Reference().LineOf(reference_.caret)));
    if (moved_ && !around.hidden && at > 0) REQUIRE(around.text->IsPosition(at));
    const VerticalPos top = Pane().Scroller().Top();
    REQUIRE(BlockTop(top.block) + top.y == reference_.Top());
    REQUIRE(view_.FirstVisibleChar() == reference_.FirstVisible());
}

void ReferenceComparison::CheckAll() {
    CheckPlace();
    CheckVisibleLines();
    CheckLinesAnywhere();
    CheckCopy();
    CheckPaint();
}

void ReferenceComparison::CheckVisibleLines() {
    const int top = reference_.Top();
    for (const ReferenceLine& line : Reference().lines)
        if (line.bottom > top && line.top < top + reference_.viewHeight) CheckLine(line);
}

void ReferenceComparison::CheckLine(const ReferenceLine& line) {
    CAPTURE(line.start);
    TextLayouts& layouts = Pane().Layouts();
    const auto layout = layouts.At(line.start);
    const LineRef ref = LineOf(*layout, line.start);
    const int blockTop = BlockTop(layout->block.start);
    REQUIRE(LineStart(*layout, ref) == line.start);
    REQUIRE(LineEnd(*layout, ref) == line.end);
    REQUIRE(layout->paragraphs[ref.paragraph].LastCaretPosition(ref.line) ==
            reference_.LastCaretPosition(line));
    REQUIRE(blockTop + LineTop(*layout, ref) == line.top);
    REQUIRE(blockTop + LineBottom(*layout, ref) == line.bottom);
    if (Reference().ParagraphOf(line).hidden) return;
    const TextPos step = 1 + (line.end - line.start) / 60;
    for (TextPos at = line.start; at <= reference_.LastCaretPosition(line); at += step)
        CheckCharacter(*layout, blockTop, line, at);
}

void ReferenceComparison::CheckCharacter(const BlockLayout& layout, int blockTop,
                                         const ReferenceLine& line, TextPos at) {
    CAPTURE(at);
    const Rect expected = reference_.CaretBox(at);
    const Rect box = Moved(::CaretBox(layout, at), {0, blockTop});
    INFO("line", reference_.Describe(line));
    INFO("the caret is at ", Describe(box), " instead of ", Describe(expected));
    REQUIRE(std::abs(box.left - expected.left) <= (HasWholePixels() ? 0 : 1));
    REQUIRE((Rect{expected.left, box.top, box.width, box.height} == expected));
    if (line.inkBottom <= line.inkTop + 1) return;
    const int x = expected.left, y = (line.inkTop + line.inkBottom) / 2 - blockTop;
    const auto& cell = Reference().ParagraphOf(line).cell;
    if (cell && (x < cell->left || x >= Right(*cell))) return; // the cell is too narrow for it
    const TextPos back = PositionAt(layout, {x, y});
    const bool possible = reference_.IsPossible(line, x, back);
    INFO("from ", x, " back at ", back);
    REQUIRE(possible);
}

void ReferenceComparison::CheckLinesAnywhere() {
    for (int i = 0; i < 10; ++i) {
        const TextPos position = Somewhere();
        CAPTURE(position);
        const ReferenceLine& line = Reference().LineOf(position);
        const LineSpan span = view_.LineAround(position);
        REQUIRE(span.start == line.start);
        REQUIRE(span.length == line.end - line.start);
    }
}

bool ReferenceComparison::SplitsPair(TextPos position) const {
    return position > 0 && position < Length() &&
           IsLowSurrogate(reference_.settings.text[std::size_t(position)]);
}

void ReferenceComparison::CheckCopy() {
    const TextPos from = view_.SelStart(), length = view_.SelLength();
    const std::u16string expected =
        reference_.settings.text.substr(std::size_t(from), std::size_t(length));
    REQUIRE((view_.TextRange(from, length) == expected));
    if (book_.plain && !SplitsPair(from) && !SplitsPair(from + length))
        REQUIRE((ReadRtf(view_.SelectionAsRtf(), 1252).text == expected));
}
