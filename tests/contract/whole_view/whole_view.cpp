#include "tests/contract/whole_view/whole_view.h"

#include <QKeyEvent>

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>

namespace {
int Height(const WholeLine& line) {
    return std::max(1, line.bottom - line.top);
}
} // namespace

void WholeView::Load() {
    anchor = caret = 0;
    wantedX.reset();
    Relayout();
    ShowLine(0);
}

void WholeView::Relayout() {
    whole_ = LayOutWhole(setting);
}

int WholeView::Top() const {
    const WholeLine& line = whole_.LineOf(topChar_);
    return line.top + std::min(hidden_, Height(line) - 1);
}

void WholeView::SetTop(int y) {
    const WholeLine& line = whole_.LineAt(y);
    topChar_ = line.start;
    hidden_ = std::clamp(y - line.top, 0, Height(line) - 1);
    placed_ = false;
}

TextPos WholeView::FirstVisible() const {
    const WholeLine& line = whole_.LineOf(topChar_);
    const int seen = line.bottom - Top();
    if (2 * seen >= std::min(Height(line), viewHeight)) return line.start;
    return whole_.LineAt(Moved(line.bottom)).start;
}

QRect WholeView::CaretBox(TextPos position) const {
    const WholeLine& line = whole_.LineOf(position);
    const QTextLine text = line.Text(whole_);
    const WholeParagraph& paragraph = whole_.ParagraphOf(line);
    return {int(std::floor(whole_.X(line, position))),
            int(std::floor(paragraph.origin.y() + text.y())), 1, int(std::ceil(text.height()))};
}

void WholeView::ShowLine(TextPos position) {
    topChar_ = std::clamp(position, 0, TextPos(setting.text.size()));
    hidden_ = 0;
    placed_ = true;
}

void WholeView::ScrollBy(int pixels) {
    const int top = Top();
    if (pixels > 0 && top >= LastTop()) return;
    SetTop(std::min(Moved(top + pixels), std::max(top, LastTop())));
}

void WholeView::ScrollLines(int lines) {
    const int from = Top();
    ScrollBy(lines * lineHeight);
    const int to = Top();
    const WholeLine& line = whole_.LineAt(to);
    if (to == from || to >= LastTop() || 2 * Height(line) > viewHeight) return;
    int nearest = 2 * (to - line.top) <= Height(line) ? line.top : line.bottom;
    if (lines > 0 && nearest <= from) nearest = line.bottom;
    if (lines < 0 && nearest >= from) nearest = line.top;
    SetTop(std::min(nearest, LastTop()));
}

void WholeView::ScrollPage(bool down) {
    const int from = Top(), page = std::max(lineHeight, viewHeight - lineHeight);
    ScrollBy(down ? page : -page);
    const int to = Top();
    if (to == from || to >= LastTop()) return;
    const WholeLine& line = whole_.LineAt(to);
    if (down && line.top > from)
        SetTop(line.top);
    else if (down && line.bottom <= from + viewHeight)
        SetTop(std::min(line.bottom, LastTop()));
    else if (!down && line.top < to && line.bottom < from)
        SetTop(line.bottom);
    else if (!down && line.top >= from - viewHeight)
        SetTop(line.top);
}

void WholeView::ScrollToChar(TextPos position) {
    const WholeLine& last = whole_.LineAt(LastTop());
    const int above = std::clamp(LastTop() - last.top, 0, Height(last));
    const TextPos lastChar =
        last.start + TextPos(std::int64_t(last.end - last.start) * above / Height(last));
    if (position >= lastChar) return SetTop(LastTop());
    const WholeLine& line = whole_.LineOf(position);
    const TextPos length = line.end - line.start;
    const std::int64_t part = std::int64_t(position - line.start) * Height(line);
    SetTop(line.top + (length > 0 ? int(part / length) : 0));
}

void WholeView::Reveal(TextPos position) {
    const WholeLine& line = whole_.LineOf(position);
    int from = line.top, to = line.bottom;
    if (to - from > viewHeight) {
        const QRect box = CaretBox(position);
        from = std::max(from, box.top());
        to = std::min(to, box.top() + box.height());
    }
    if (from < Top())
        SetTop(from);
    else if (to > Moved(Top() + viewHeight))
        SetTop(Moved(to - viewHeight));
}

void WholeView::SettleAtEnd() {
    if (!placed_ && Top() > LastTop()) SetTop(LastTop());
}

const WholeLine& WholeView::LineIn(const WholeParagraph& paragraph, int y) const {
    std::size_t found = paragraph.firstLine;
    for (std::size_t i = found; i < paragraph.firstLine + paragraph.lineCount; ++i) {
        const int top = whole_.lines[i].inkTop;
        if (i == paragraph.firstLine || top <= y) found = i;
    }
    return whole_.lines[found];
}

const WholeLine& WholeView::LineNear(int x, int y) const {
    y = Moved(y);
    const std::size_t block = whole_.BlockAt(y);
    const auto distance = [](int at, int from, int to) {
        return at < from ? from - at : at >= to ? at - to + 1 : 0;
    };
    const WholeParagraph* nearest = nullptr;
    std::tuple least(0, 0, 0);
    for (const WholeParagraph& paragraph : whole_.paragraphs) {
        if (paragraph.block != block || paragraph.hidden) continue;
        std::tuple each(0, 0, distance(y, paragraph.top, paragraph.bottom));
        if (!paragraph.cell.isNull()) {
            const QRect& cell = paragraph.cell;
            std::get<0>(each) = distance(y, cell.top(), cell.top() + cell.height());
            std::get<1>(each) = distance(x, cell.left(), cell.left() + cell.width());
        }
        if (nearest && each >= least) continue;
        nearest = &paragraph;
        least = each;
    }
    return LineIn(*nearest, y);
}

TextPos WholeView::LastPlace(const WholeLine& line) const {
    if (!line.goesOn) return line.end;
    const WholeParagraph& paragraph = whole_.ParagraphOf(line);
    return paragraph.start + paragraph.text->previousCursorPosition(line.end - paragraph.start);
}

bool WholeView::GoesOneWay(const WholeLine& line) const {
    const WholeParagraph& paragraph = whole_.ParagraphOf(line);
    const QString before = paragraph.text->text().first(line.start - paragraph.start);
    for (qsizetype i = before.size() - 1; i >= 0; --i) { // digits go the way of what is before them
        const QChar::Direction direction = before[i].direction();
        if (direction == QChar::DirL && !before[i].isSurrogate()) break;
        if (direction == QChar::DirR || direction == QChar::DirAL) {
            if (!paragraph.rightToLeft) return false;
            break;
        }
    }
    for (const QChar unit :
         paragraph.text->text().mid(line.start - paragraph.start, line.end - line.start)) {
        const QChar::Direction direction = unit.direction();
        const bool leftwards = direction == QChar::DirR || direction == QChar::DirAL;
        const bool rightwards = direction == QChar::DirL || direction == QChar::DirEN;
        if (paragraph.rightToLeft ? rightwards : leftwards) return false;
        if (direction >= QChar::DirLRE && direction != QChar::DirNSM && !leftwards &&
            direction != QChar::DirBN)
            return false;
        if (direction == QChar::DirAN || unit.isSurrogate()) return false;
    }
    return true;
}

std::string WholeView::Describe(const WholeLine& line) const {
    std::string told;
    for (TextPos at = line.start; at <= line.end; ++at) {
        const bool inside = at < TextPos(setting.text.size());
        const char16_t unit = inside ? setting.text[std::size_t(at)] : u'\0';
        told += " " + std::to_string(at);
        told += unit > 32 && unit < 127 ? std::string(1, char(unit))
                                        : "(" + QString::number(unit, 16).toStdString() + ")";
        told += QString::number(whole_.X(line, at), 'f', 1).toStdString();
    }
    return told;
}

bool WholeView::MayBe(const WholeLine& line, int x, TextPos position) const {
    const TextPos last = LastPlace(line);
    if (last < line.start) return position == last; // only marks of a letter in the line above
    if (position < line.start || position > last) return false;
    if (!GoesOneWay(line)) return true;
    const WholeParagraph& paragraph = whole_.ParagraphOf(line);
    double least = std::numeric_limits<double>::max();
    for (TextPos each = line.start; each <= last; ++each)
        if (paragraph.text->isValidCursorPosition(each - paragraph.start))
            least = std::min(least, std::abs(whole_.X(line, each) - x));
    // Behind the text of a wrapped line there are only its blanks.
    const QTextLine text = line.Text(whole_);
    const double end = paragraph.origin.x() + text.naturalTextRect().right();
    if (!paragraph.rightToLeft && x >= end - 1 && position == last) return true;
    return std::abs(whole_.X(line, position) - x) <= least + 1;
}

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
    else if (line.top < Top() && Height(line) < viewHeight)
        at = line.bottom;
    return &LineNear(*wantedX, at);
}

void WholeView::ShowCaret(bool afterPage) {
    const WholeLine& line = whole_.LineOf(caret);
    const bool highAndSeen =
        Height(line) > viewHeight && line.bottom > Top() && line.top < Moved(Top() + viewHeight);
    if (afterPage && highAndSeen)
        SetTop(Top());
    else
        Reveal(caret);
}
