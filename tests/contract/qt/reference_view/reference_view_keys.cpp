// Where keys take the caret.
#include "tests/contract/qt/reference_view/reference_view.h"

#include <QKeyEvent>

#include <algorithm>

std::optional<TextPos> WholeView::KeyTarget(int key, bool control) const {
    const WholeLine& line = whole_.LineOf(caret);
    switch (key) {
    case Qt::Key_Home: return control ? 0 : line.start;
    case Qt::Key_End: return control ? TextPos(setting.text.size()) : LastPlace(line);
    case Qt::Key_Left:
    case Qt::Key_Right: break;
    default: return std::nullopt;
    }
    const bool forward = (key == Qt::Key_Right) != whole_.ParagraphOf(line).rightToLeft;
    const TextPos target =
        Next(forward, control ? QTextLayout::SkipWords : QTextLayout::SkipCharacters);
    const bool known = GoesOneWay(line) && GoesOneWay(whole_.LineOf(target));
    return known ? std::optional(target) : std::nullopt;
}

TextPos WholeView::Next(bool forward, QTextLayout::CursorMode mode) const {
    const std::size_t index = whole_.LineOf(caret).paragraph;
    const auto& all = whole_.paragraphs;
    const WholeParagraph& paragraph = all[index];
    const int at = std::clamp(caret, paragraph.start, paragraph.end) - paragraph.start;
    const bool words = mode == QTextLayout::SkipWords; // may end within a character
    if (forward) {
        int to = paragraph.text->nextCursorPosition(at, mode);
        if (words && !paragraph.text->isValidCursorPosition(to))
            to = paragraph.text->nextCursorPosition(to);
        if (to != at) return paragraph.start + to;
        return index + 1 < all.size() ? all[index + 1].start : paragraph.end;
    }
    int to = paragraph.text->previousCursorPosition(at, mode);
    if (words && !paragraph.text->isValidCursorPosition(to))
        to = paragraph.text->previousCursorPosition(to);
    if (to != at) return paragraph.start + to;
    if (index == 0) return paragraph.start;
    const WholeParagraph& before = all[index - 1];
    if (before.end < paragraph.start || before.end == before.start) return before.end;
    return before.start + before.text->previousCursorPosition(before.end - before.start, mode);
}

const WholeLine& WholeView::LineAbove(int x) const {
    const WholeLine& line = whole_.LineOf(caret);
    const WholeParagraph& paragraph = whole_.ParagraphOf(line);
    const std::size_t index = std::size_t(&line - whole_.lines.data());
    const auto sameCell = [&](const WholeParagraph& other) {
        return other.block == paragraph.block && other.cellNumber == paragraph.cellNumber;
    };
    if (index > 0 && sameCell(whole_.ParagraphOf(whole_.lines[index - 1])))
        return whole_.lines[index - 1];
    const int top =
        paragraph.cell.isNull() ? whole_.blocks[paragraph.block].top : paragraph.cell.top();
    return top > 0 ? LineNear(x, top - 1) : line;
}

const WholeLine& WholeView::LineBelow(int x) const {
    const WholeLine& line = whole_.LineOf(caret);
    const WholeParagraph& paragraph = whole_.ParagraphOf(line);
    const std::size_t index = std::size_t(&line - whole_.lines.data());
    const auto sameCell = [&](const WholeParagraph& other) {
        return other.block == paragraph.block && other.cellNumber == paragraph.cellNumber;
    };
    if (index + 1 < whole_.lines.size() && sameCell(whole_.ParagraphOf(whole_.lines[index + 1])))
        return whole_.lines[index + 1];
    const int bottom = paragraph.cell.isNull() ? whole_.blocks[paragraph.block].bottom
                                               : paragraph.cell.top() + paragraph.cell.height();
    return bottom < whole_.height ? LineNear(x, bottom) : line;
}

const WholeLine* WholeView::TurnPage(bool down) {
    const QRect box = CaretBox(caret);
    const WholeBlock& block = whole_.blocks[whole_.ParagraphOf(whole_.LineOf(caret)).block];
    const int from = Top();
    const bool seen = block.bottom > from && block.top < from + viewHeight;
    const int center = box.top() - from + (box.height() - 1) / 2;
    const int y = seen ? std::clamp(center, 0, viewHeight - 1) : 0;
    ScrollPage(down);
    if (Top() == from) return nullptr;
    int at = Moved(Top() + y);
    const WholeLine& line = whole_.LineAt(at);
    if (line.bottom > Moved(Top() + viewHeight) && line.top > Top())
        at = line.top - 1;
    else if (line.top < Top() && line.Height() < viewHeight)
        at = line.bottom;
    return &LineNear(*wantedX, at);
}

void WholeView::ShowCaret(bool afterPage) {
    const WholeLine& line = whole_.LineOf(caret);
    const bool highAndSeen =
        line.Height() > viewHeight && line.bottom > Top() && line.top < Moved(Top() + viewHeight);
    if (afterPage && highAndSeen)
        SetTop(Top());
    else
        Reveal(caret);
}
