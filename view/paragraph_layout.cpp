#include "view/paragraph_layout.h"

#include <algorithm>
#include <cmath>

const Picture* PictureAt(const Document& document, TextPos position) {
    const auto& pictures = document.pictures;
    const auto found =
        std::lower_bound(pictures.begin(), pictures.end(), position,
                         [](const Picture& p, TextPos at) { return p.position < at; });
    return found != pictures.end() && found->position == position ? &*found : nullptr;
}

int ParagraphLayout::LineOf(TextPos position) const {
    const TextPos at = std::clamp(position, start, end) - start;
    int low = 0, high = LineCount() - 1; // finds the last line that starts at or before `at`
    while (low < high) {
        const int middle = (low + high + 1) / 2;
        if (text->Line(middle).start <= at)
            low = middle;
        else
            high = middle - 1;
    }
    return low;
}

int ParagraphLayout::BottomWithoutSpace(int line) const {
    return line + 1 < LineCount() ? LineTop(line + 1) : height - spaceAfter;
}

TextPos ParagraphLayout::LastCaretPosition(int line) const {
    const bool ends = line + 1 == LineCount() && !(continues && end > LineStart(line));
    return ends ? end : PreviousCaretPosition(LineEnd(line));
}

double ParagraphLayout::X(int line, TextPos position) const {
    return lines[std::size_t(line)].left + text->CaretX(line, position - start);
}

TextPos ParagraphLayout::PositionInLine(int line, int x) const {
    const TextPos at = text->PositionAt(line, x - lines[std::size_t(line)].left);
    return std::min(start + at, LastCaretPosition(line));
}

TextPos ParagraphLayout::CharacterInLine(int line, double x) const {
    return start + text->CharacterAt(line, x - lines[std::size_t(line)].left);
}

Rect ParagraphLayout::PictureBox(const PlacedPicture& picture) const {
    const int line = LineOf(picture.position);
    const PlacedLine& placed = lines[std::size_t(line)];
    const double left = text->CharacterExtent(line, picture.position - start).left;
    return {placed.left + int(std::lround(left)), placed.baseline - picture.size.height,
            picture.size.width, picture.size.height};
}

Rect ParagraphLayout::CharacterBox(int line, TextPos position) const {
    for (const PlacedPicture& picture : pictures)
        if (picture.position == position) return PictureBox(picture);
    const TextLine& metrics = text->Line(line);
    const PlacedLine& placed = lines[std::size_t(line)];
    const TextExtent extent = text->CharacterExtent(line, position - start);
    const int left = int(std::floor(extent.left));
    return {placed.left + left, int(std::floor(placed.baseline - metrics.ascent)),
            std::max(1, int(std::ceil(extent.right)) - left),
            int(std::ceil(metrics.ascent + metrics.descent))};
}
