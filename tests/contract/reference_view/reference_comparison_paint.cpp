// Compares what is painted.
#include "tests/contract/reference_view/reference_comparison.h"

#include "common/unicode.h"

#include <doctest/doctest.h>

#include <cmath>

namespace {
constexpr Color selected = 0xFF00FF;

// Antialiasing of huge glyphs depends on the exposed rectangle.
bool IsSimilar(Color one, Color other) {
    constexpr int shades = 24; // of 256
    for (int shift = 0; shift < 24; shift += 8)
        if (std::abs(int(one >> shift & 0xFF) - int(other >> shift & 0xFF)) > shades) return false;
    return true;
}

bool AreSimilar(const PanePicture& one, const PanePicture& other, const Rect& part) {
    for (int y = part.top; y < Bottom(part); ++y)
        for (int x = part.left; x < Right(part); ++x)
            if (!IsSimilar(one.At(x, y), other.At(x, y))) return false;
    return true;
}
} // namespace

// A part that is painted separately equals the same part of the whole; and the selection has no
// gaps.
void ReferenceComparison::CheckPaint() {
    SystemStyle system = Pane().System();
    system.selection = system.inactiveSelection = {selected, selected}; // glyphs are no gaps
    Pane().SetSystemStyle(system);
    Pane().OnTimer(PaneTimer::ScrollLabel); // over the text while a wheel turns
    const auto all = Painted({0, 0, Room().width, Room().height});
    const Size room = Room();
    const int left = Below(random_, room.width), top = Below(random_, room.height);
    const Rect part{left, top, 1 + Below(random_, room.width - left),
                    1 + Below(random_, room.height - top)};
    if (!book_.overlaps) REQUIRE(AreSimilar(*Painted(part), *all, part));
    if (!book_.overlaps && document_.pictures.empty()) CheckSelection(*all);
}

std::unique_ptr<PanePicture> ReferenceComparison::Painted(const Rect& part) {
    auto picture = MakePanePicture(Room());
    Pane().Paint(picture->Target(), part);
    return picture;
}

void ReferenceComparison::CheckSelection(const PanePicture& picture) {
    for (const ReferenceLine& line : Reference().lines)
        if (!Reference().ParagraphOf(line).hidden && reference_.IsUnidirectional(line) &&
            !MayBeCovered(line))
            CheckSelectedLine(picture, line);
}

// By a word of another cell that is wider than its cell.
bool ReferenceComparison::MayBeCovered(const ReferenceLine& line) const {
    const std::size_t block = Reference().ParagraphOf(line).block;
    return std::any_of(Reference().lines.begin(), Reference().lines.end(),
                       [&](const ReferenceLine& other) {
                           const ReferenceParagraph& paragraph = Reference().ParagraphOf(other);
                           if (paragraph.block != block || !paragraph.cell) return false;
                           const int x = paragraph.origin.x + other.left;
                           return x + Reference().Measures(other).width > Right(*paragraph.cell);
                       });
}

void ReferenceComparison::CheckSelectedLine(const PanePicture& picture, const ReferenceLine& line) {
    const int top = reference_.Top(), left = -Pane().ToTextX(0);
    const int from = std::max(0, line.inkTop - top);
    const int to = std::min(Room().height, line.inkBottom - top);
    if (from >= to) return;
    const ReferenceParagraph& paragraph = Reference().ParagraphOf(line);
    const TextPos step = 1 + (line.end - line.start) / 40;
    for (TextPos at = line.start; at < line.end; at += step) {
        const TextPos next = paragraph.text->NextPosition(at - paragraph.start);
        const double x = Reference().X(line, at),
                     after = Reference().X(line, paragraph.start + next);
        const int column = left + int(std::floor((x + after) / 2));
        if (std::abs(after - x) < 3 || column < 0 || column >= Room().width) continue;
        if (IsBlankAtEnd(line, at) || IsPartlySelected(at, paragraph.start + next)) continue;
        INFO("line ", line.start, ", character ", at, ", column ", column);
        const bool isSelected = at >= view_.SelStart() && at < view_.SelStart() + view_.SelLength();
        for (int y = from; y < to; ++y)
            REQUIRE((picture.At(column, y) == selected) == isSelected);
    }
}

// Of a letter and its marks.
bool ReferenceComparison::IsPartlySelected(TextPos start, TextPos end) const {
    const TextPos from = view_.SelStart(), to = from + view_.SelLength();
    return (from > start && from < end) || (to > start && to < end);
}

bool ReferenceComparison::IsBlankAtEnd(const ReferenceLine& line, TextPos at) const {
    for (TextPos i = at; i < line.end; ++i)
        if (!IsSpaceCharacter(reference_.settings.text[std::size_t(i)])) return false;
    return true;
}
