#include "platform/windows/line_layout/win_text_lines.h"

#include "platform/windows/line_layout/line_painter.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

WinTextLines::WinTextLines(WinFonts& fonts, const ParagraphText& paragraph)
    : text_(AnalyzeUnits(paragraph)), shaped_(ShapeText(fonts, paragraph, text_)),
      styles_(paragraph.runs), lines_(BreakIntoLines(paragraph, text_, shaped_)),
      before_(text_.Size() + 1) {
    std::partial_sum(shaped_.widths.begin(), shaped_.widths.end(), before_.begin() + 1);
}

std::size_t WinTextLines::Limit(TextPos position) const {
    return std::min(static_cast<std::size_t>(std::max(position, 0)), text_.Size());
}

int WinTextLines::LineOf(std::size_t position) const {
    const auto after =
        std::upper_bound(lines_.begin() + 1, lines_.end(), static_cast<TextPos>(position),
                         [](TextPos at, const BrokenLine& each) { return at < each.line.start; });
    return static_cast<int>(after - lines_.begin()) - 1;
}

int WinTextLines::EdgeX(const VisualPiece& piece, std::size_t unit) const {
    const int along = WidthOf(piece.start, unit);
    return piece.left + (piece.rightToLeft ? piece.width - along : along);
}

std::size_t WinTextLines::CaretFrom(std::size_t unit) const {
    while (unit < text_.Size() && !text_.units[unit].caret)
        ++unit;
    return unit;
}

std::size_t WinTextLines::CaretTo(std::size_t unit) const {
    while (unit > 0 && unit < text_.Size() && !text_.units[unit].caret)
        --unit;
    return unit;
}

// After a line's last character the caret stands at the end of the paragraph's direction.
double WinTextLines::CaretX(int index, TextPos position) const {
    const BrokenLine& line = At(index);
    const auto at = static_cast<std::size_t>(std::clamp(position, line.line.start, line.line.end));
    for (const VisualPiece& piece : line.pieces)
        if (at >= piece.start && at < piece.end) return EdgeX(piece, at);
    return text_.baseLevel ? 0 : line.line.width;
}

// The place in the piece whose x is nearest; the first one of several.
std::size_t WinTextLines::CaretIn(const VisualPiece& piece, double x) const {
    const double along = piece.rightToLeft ? piece.left + piece.width - x : x - piece.left;
    const auto first = before_.begin() + static_cast<std::ptrdiff_t>(piece.start);
    const auto end = before_.begin() + static_cast<std::ptrdiff_t>(piece.end);
    const auto reached = std::lower_bound(first, end, *first + along);
    const auto unit = static_cast<std::size_t>(reached - before_.begin());
    const std::size_t after = CaretFrom(unit),
                      front = CaretTo(unit > piece.start ? unit - 1 : unit);
    if (after >= piece.end) return front;
    return std::abs(EdgeX(piece, front) - x) <= std::abs(EdgeX(piece, after) - x) ? front : after;
}

TextPos WinTextLines::PositionAt(int index, double x) const {
    const BrokenLine& line = At(index);
    TextPos nearest = line.line.start;
    double distance = std::numeric_limits<double>::max();
    const auto consider = [&](std::size_t place, double placeX) {
        if (std::abs(placeX - x) >= distance) return;
        nearest = static_cast<TextPos>(place);
        distance = std::abs(placeX - x);
    };
    for (const VisualPiece& piece : line.pieces) {
        const std::size_t place = CaretIn(piece, x);
        consider(place, EdgeX(piece, place));
    }
    const bool last = index + 1 == Count(); // else the end is a place of the next line
    if (last) consider(text_.Size(), CaretX(index, line.line.end));
    return nearest;
}

TextPos WinTextLines::CharacterAt(int index, double x) const {
    const VisualPiece* nearest = nullptr;
    double distance = 0;
    for (const VisualPiece& piece : At(index).pieces) {
        const double away = std::max({0.0, piece.left - x, x - (piece.left + piece.width)});
        if (piece.width == 0 || (nearest && away >= distance)) continue;
        nearest = &piece;
        distance = away;
    }
    if (!nearest) return At(index).line.start;
    const double from =
        nearest->rightToLeft ? nearest->left + nearest->width - x : x - nearest->left;
    const double along = std::clamp(from, 0.0, nearest->width - 0.5); // within the last pixel
    const auto first = before_.begin() + static_cast<std::ptrdiff_t>(nearest->start);
    const auto end = before_.begin() + static_cast<std::ptrdiff_t>(nearest->end) + 1;
    const auto after = std::upper_bound(first, end, *first + along);
    return static_cast<TextPos>(CaretTo(static_cast<std::size_t>(after - before_.begin()) - 1));
}

TextExtent WinTextLines::CharacterExtent(int index, TextPos position) const {
    const BrokenLine& line = At(index);
    const auto at = static_cast<std::size_t>(std::clamp(position, line.line.start, line.line.end));
    for (const VisualPiece& piece : line.pieces) {
        if (at < piece.start || at >= piece.end) continue;
        const std::size_t end = std::min(CaretFrom(at + 1), piece.end);
        const auto [left, right] = std::minmax({EdgeX(piece, at), EdgeX(piece, end)});
        return {static_cast<double>(left), static_cast<double>(right)};
    }
    const double x = CaretX(index, position);
    return {x, x};
}

std::vector<TextExtent> WinTextLines::Extents(int index, TextPos start, TextPos end) const {
    const std::size_t from = Limit(start), to = Limit(end);
    std::vector<TextExtent> extents;
    bool rightToLeft = false; // of the last one
    for (const VisualPiece& piece : At(index).pieces) {
        const std::size_t first = std::max(from, piece.start), last = std::min(to, piece.end);
        if (first >= last) continue;
        const auto [left, right] = std::minmax({EdgeX(piece, first), EdgeX(piece, last)});
        if (left == right) continue;
        const bool continues =
            !extents.empty() && extents.back().right == left && rightToLeft == piece.rightToLeft;
        if (continues)
            extents.back().right = right;
        else
            extents.push_back({static_cast<double>(left), static_cast<double>(right)});
        rightToLeft = piece.rightToLeft;
    }
    return extents;
}

void WinTextLines::Draw(Canvas& canvas, int line, int left, int baseline,
                        const LinePaint& paint) const {
    const PaintedLine painted = {text_, shaped_, styles_, At(line), before_};
    PaintLine(static_cast<WinCanvas&>(canvas), painted, left, baseline, paint);
}
