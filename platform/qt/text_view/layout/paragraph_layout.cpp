#include "platform/qt/text_view/layout/paragraph_layout.h"

#include "platform/qt/text_view/layout/line_positions.h"

#include <algorithm>
#include <cmath>

int LayoutContext::Pixels(std::int32_t twips) const {
    constexpr int maxTwips = 22 * 1440; // the longest measure of a page
    return int(std::lround(std::clamp(twips, -maxTwips, maxTwips) * pixelsPerTwip));
}

TextPos ParagraphLayout::LineEnd(int line) const {
    return line + 1 < LineCount() ? LineStart(line + 1) : end;
}

int ParagraphLayout::LineOf(TextPos position) const {
    const TextPos at = std::clamp(position, start, end) - start;
    int low = 0, high = LineCount() - 1; // finds the last line that starts at or before `at`
    while (low < high) {
        const int middle = (low + high + 1) / 2;
        if (text->lineAt(middle).textStart() <= at)
            low = middle;
        else
            high = middle - 1;
    }
    return low;
}

QRect ParagraphLayout::PictureBox(const PlacedPicture& picture) const {
    const int at = picture.position - start;
    const QTextLine line = text->lineAt(LineOf(picture.position));
    const double left = std::min(line.cursorToX(at), line.cursorToX(at, QTextLine::Trailing));
    const QPoint base = QPointF(left, line.y() + line.ascent()).toPoint();
    return {base - QPoint(0, picture.size.height()), picture.size};
}

int ParagraphLayout::BottomWithoutSpace(int line) const {
    return line + 1 < LineCount() ? tops[line + 1] : tops.back() - spaceAfter;
}

double ParagraphLayout::X(int line, TextPos position) const {
    return CaretX(*text, text->lineAt(line), position - start);
}

// QTextLine::xToCursor() is unreliable behind marks and ligatures, may return a position in another
// line or within a character: so positions around it are compared.
TextPos ParagraphLayout::PositionInLine(int index, int x) const {
    const TextPos first = LineStart(index), last = LastCaretPosition(index);
    if (last < first) return last; // the line has only marks of a letter in the line above
    const QTextLine line = text->lineAt(index);
    const TextPos reported = start + line.xToCursor(LayoutQueryX(*text, line, x));
    TextPos at = std::clamp(reported, first, last);
    if (!text->isValidCursorPosition(at - start)) at = std::max(first, PreviousCaretPosition(at));
    constexpr int maxSteps = 64; // over characters without width
    TextPos nearest = at;
    double minDistance = std::abs(X(index, at) - x);
    int steps = 0;
    // Whether to search on behind the position; characters may have no width.
    const auto isCloser = [&](TextPos position) {
        const double distance = std::abs(X(index, position) - x);
        steps = distance < minDistance ? 0 : steps + 1;
        if (distance > minDistance || steps > maxSteps) return false;
        if (distance < minDistance) nearest = position;
        minDistance = distance;
        return true;
    };
    const TextPos from = at;
    for (TextPos next = NextCaretPosition(at); next > at && next <= last && isCloser(next);
         next = NextCaretPosition(at))
        at = next;
    at = from;
    steps = 0;
    for (TextPos before = PreviousCaretPosition(at);
         before < at && before >= first && isCloser(before); before = PreviousCaretPosition(at))
        at = before;
    return nearest;
}

TextPos ParagraphLayout::LastCaretPosition(int line) const {
    const bool ends = line + 1 == LineCount() && !(continues && end > LineStart(line));
    return ends ? end : PreviousCaretPosition(LineEnd(line));
}

TextPos ParagraphLayout::TrailingSpacesStart(int index) const {
    return start + TextEnd(*text, text->lineAt(index));
}

QRectF ParagraphLayout::TextBox(int index) const {
    const QTextLine line = text->lineAt(index);
    QRectF rect = line.naturalTextRect();
    const bool stretched = rect.width() > line.naturalTextWidth();
    if (stretched) rect.setWidth(rect.width() - TrailingSpacesWidth(*text, line));
    return rect;
}

TextPos ParagraphLayout::CharacterInLine(int index, double x) const {
    const QTextLine line = text->lineAt(index);
    return start + line.xToCursor(LayoutQueryX(*text, line, x), QTextLine::CursorOnCharacter);
}
