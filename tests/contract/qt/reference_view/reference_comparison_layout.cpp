// Lines and places, compared.
#include "tests/contract/qt/reference_view/reference_comparison.h"

#include "formats/rtf_reader.h"

#include <doctest/doctest.h>

namespace {
std::string Told(const QRect& box) {
    return std::to_string(box.x()) + ", " + std::to_string(box.y()) + ", " +
           std::to_string(box.height()) + " high";
}
} // namespace

void Held::CheckPlace() {
    REQUIRE(View().TextLength() == Size());
    REQUIRE(Widget().Caret() == whole_.caret);
    REQUIRE(View().SelStart() == std::min(whole_.anchor, whole_.caret));
    REQUIRE(View().SelStart() + View().SelLength() == std::max(whole_.anchor, whole_.caret));
    const WholeParagraph& around = Whole().ParagraphOf(Whole().LineOf(whole_.caret));
    const TextPos at = std::min(whole_.caret, around.end) - around.start;
    INFO("caret ", whole_.caret, " of ", around.start, " to ", around.end, ", lines from",
         whole_.Describe(Whole().LineOf(whole_.caret)));
    if (moved_ && !around.hidden && at > 0) REQUIRE(around.text->isValidCursorPosition(at));
    const TextHeight top = Widget().Scroller().Top();
    REQUIRE(BlockTop(top.block) + top.y == whole_.Top());
    REQUIRE(View().FirstVisibleChar() == whole_.FirstVisible());
}

void Held::CheckAll() {
    CheckPlace();
    CheckSeenLines();
    CheckLinesAnywhere();
    CheckCopy();
    CheckPaint();
}

void Held::CheckSeenLines() {
    const int top = whole_.Top();
    for (const WholeLine& line : Whole().lines)
        if (line.bottom > top && line.top < top + whole_.viewHeight) CheckLine(line);
}

void Held::CheckLine(const WholeLine& line) {
    CAPTURE(line.start);
    TextLayouts& layouts = Widget().Layouts();
    const auto layout = layouts.At(line.start);
    const LineRef ref = LineOf(*layout, line.start);
    const int blockTop = BlockTop(layout->block.start);
    REQUIRE(LineStart(*layout, ref) == line.start);
    REQUIRE(LineEnd(*layout, ref) == line.end);
    REQUIRE(layout->paragraphs[ref.paragraph].LastPlace(ref.line) == whole_.LastPlace(line));
    REQUIRE(blockTop + LineTop(*layout, ref) == line.top);
    REQUIRE(blockTop + LineBottom(*layout, ref) == line.bottom);
    if (Whole().ParagraphOf(line).hidden) return;
    const TextPos step = 1 + (line.end - line.start) / 60;
    for (TextPos at = line.start; at <= whole_.LastPlace(line); at += step)
        CheckCharacter(*layout, blockTop, line, at);
}

void Held::CheckCharacter(const BlockLayout& layout, int blockTop, const WholeLine& line,
                          TextPos at) {
    CAPTURE(at);
    const QRect expected = whole_.CaretBox(at);
    const QRect box = CaretBox(layout, at).translated(0, blockTop);
    INFO("line", whole_.Describe(line));
    INFO("the caret is at ", Told(box), " instead of ", Told(expected));
    REQUIRE((box == expected));
    if (line.inkBottom <= line.inkTop + 1) return;
    const int x = expected.x(), y = (line.inkTop + line.inkBottom) / 2 - blockTop;
    const QRect& cell = Whole().ParagraphOf(line).cell;
    if (!cell.isNull() && (x < cell.left() || x > cell.right())) return; // too narrow for it
    const TextPos back = PositionAt(layout, QPoint(x, y));
    const bool mayBe = whole_.MayBe(line, x, back);
    INFO("from ", x, " back at ", back);
    REQUIRE(mayBe);
}

void Held::CheckLinesAnywhere() {
    for (int i = 0; i < 10; ++i) {
        const TextPos position = Somewhere();
        CAPTURE(position);
        const WholeLine& line = Whole().LineOf(position);
        const LineSpan span = View().LineAround(position);
        REQUIRE(span.start == line.start);
        REQUIRE(span.length == line.end - line.start);
    }
}

bool Held::SplitsPair(TextPos position) const {
    return position > 0 && position < Size() &&
           QChar::isLowSurrogate(whole_.setting.text[std::size_t(position)]);
}

void Held::CheckCopy() {
    const TextPos from = View().SelStart(), length = View().SelLength();
    const std::u16string expected =
        whole_.setting.text.substr(std::size_t(from), std::size_t(length));
    REQUIRE((View().TextRange(from, length) == expected));
    if (book_.plain && !SplitsPair(from) && !SplitsPair(from + length))
        REQUIRE((ReadRtf(View().SelectionAsRtf(), 1252).text == expected));
}
