// Compares what is painted.
#include "tests/contract/qt/reference_view/reference_comparison.h"

#include <doctest/doctest.h>

#include <QScrollBar>

#include <cmath>

namespace {
// Antialiasing of huge glyphs depends on the exposed rectangle.
bool IsSimilar(const QImage& one, const QImage& other) {
    constexpr int shades = 24; // of 256
    if (one.size() != other.size()) return false;
    const auto differ = [&](QRgb a, QRgb b) {
        return std::abs(qRed(a) - qRed(b)) > shades || std::abs(qGreen(a) - qGreen(b)) > shades ||
               std::abs(qBlue(a) - qBlue(b)) > shades;
    };
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x)
            if (differ(one.pixel(x, y), other.pixel(x, y))) return false;
    return true;
}
} // namespace

// A part that is painted separately equals the same part of the whole; and the selection has no
// gaps.
void ReferenceComparison::CheckPaint() {
    const QColor selected(Qt::magenta);
    HighlightIn(selected);
    Widget().Pane().OnTimer(PaneTimer::ScrollLabel); // over the text while a wheel turns
    const QRect view = Widget().viewport()->rect();
    const QImage all = Painted(view);
    const QRect part(Below(random_, view.width()), Below(random_, view.height()),
                     1 + Below(random_, view.width()), 1 + Below(random_, view.height()));
    if (Ratio() == std::floor(Ratio()) && !book_.overlaps) {
        const QRect inside = part & view;
        const QRect crop(inside.topLeft() * int(Ratio()), inside.size() * int(Ratio()));
        REQUIRE(IsSimilar(Painted(inside), all.copy(crop)));
    }
    if (!book_.overlaps && document_.pictures.empty()) CheckSelection(all, selected.rgb());
}

// For the selected text, too, so that glyphs are no gaps.
void ReferenceComparison::HighlightIn(const QColor& color) {
    QPalette palette = Widget().palette();
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        palette.setColor(group, QPalette::Highlight, color);
        palette.setColor(group, QPalette::HighlightedText, color);
    }
    Widget().setPalette(palette);
}

QImage ReferenceComparison::Painted(const QRect& part) {
    return Widget().viewport()->grab(part).toImage().convertToFormat(QImage::Format_RGB32);
}

void ReferenceComparison::CheckSelection(const QImage& image, QRgb selected) {
    for (const ReferenceLine& line : Reference().lines)
        if (!Reference().ParagraphOf(line).hidden && reference_.IsUnidirectional(line))
            CheckSelectedLine(image, selected, line);
}

void ReferenceComparison::CheckSelectedLine(const QImage& image, QRgb selected,
                                            const ReferenceLine& line) {
    const int top = reference_.Top(), left = margin_ - Widget().horizontalScrollBar()->value();
    const int from = std::max(0, line.inkTop - top);
    const int to = std::min(image.height(), line.inkBottom - top);
    if (from >= to) return;
    const ReferenceParagraph& paragraph = Reference().ParagraphOf(line);
    const TextPos step = 1 + (line.end - line.start) / 40;
    for (TextPos at = line.start; at < line.end; at += step) {
        const int next = paragraph.text->nextCursorPosition(at - paragraph.start);
        const double x = Reference().X(line, at),
                     behind = Reference().X(line, paragraph.start + next);
        const int column = left + int(std::floor((x + behind) / 2));
        if (std::abs(behind - x) < 3 || column < 0 || column >= image.width()) continue;
        if (IsBlankAtEnd(line, at)) continue;
        INFO("line ", line.start, ", character ", at, ", column ", column);
        const bool isSelected =
            at >= View().SelStart() && at < View().SelStart() + View().SelLength();
        for (int y = from; y < to; ++y)
            REQUIRE((image.pixel(column, y) == selected) == isSelected);
    }
}

bool ReferenceComparison::IsBlankAtEnd(const ReferenceLine& line, TextPos at) const {
    for (TextPos i = at; i < line.end; ++i)
        if (!QChar(reference_.settings.text[std::size_t(i)]).isSpace()) return false;
    return true;
}
