// The characters of a line of several directions.
#include "platform/qt/text_view/line_layout/line_edges.h"
#include "platform/qt/text_view/line_layout/line_places.h"

#include <QGlyphRun>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {
struct Edges {
    std::vector<double> leading, trailing;
    double WidthOf(std::size_t i) const { return std::abs(trailing[i] - leading[i]); }
};

Edges EdgesOf(QTextLayout& layout, const QTextLine& line, const std::vector<int>& starts,
              bool rightToLeft) {
    const LineEdges edges(layout, line, rightToLeft);
    Edges found;
    for (const int at : starts) {
        found.leading.push_back(edges.Leading(at));
        found.trailing.push_back(edges.Trailing(at));
    }
    return found;
}

// Where a line ends on the right, and the character before one, in its own direction.
struct Neighbours {
    double lineEnd = 0, before = 0;
};

// Of a character that is not drawn, whose direction Qt does not tell: `others` are of the wrong
// one, where it has no width though it is a space, is outside the line, or is not after the
// character before it.
bool HasRightDirection(const Edges& edges, const Edges& others, std::size_t i, bool isSpace,
                       const Neighbours& neighbours) {
    const double width = edges.WidthOf(i), other = others.WidthOf(i);
    if (isSpace && (width > edgeRounding) != (other > edgeRounding)) return width > edgeRounding;
    const double lineEnd = neighbours.lineEnd + edgeRounding, before = neighbours.before;
    if ((edges.leading[i] > lineEnd) != (others.leading[i] > lineEnd))
        return edges.leading[i] <= lineEnd;
    const bool follows = std::abs(edges.leading[i] - before) < edgeRounding;
    const bool otherFollows = std::abs(others.leading[i] - before) < edgeRounding;
    return follows != otherFollows ? follows : width < other;
}

bool HasSoftHyphen(const QTextLayout& layout, const QTextLine& line) {
    const QString text = layout.text();
    return QStringView(text)
        .sliced(line.textStart(), line.textLength())
        .contains(QChar(QChar::SoftHyphen));
}

std::vector<int> Starts(const QTextLayout& layout, const QTextLine& line) {
    std::vector<int> starts;
    const int end = LineEnd(line);
    for (int at = line.textStart(); at < end; at = NextCharacter(layout, at))
        starts.push_back(at);
    return starts;
}
} // namespace

std::optional<bool> LinePlaces::DrawnRightToLeft(int at) const {
    const auto glyphs = line_.glyphRuns(at, NextCharacter(layout_, at) - at);
    return glyphs.isEmpty() ? std::nullopt : std::optional(glyphs.first().isRightToLeft());
}

// Each character is asked in the direction that it is drawn in. A tab has that of the paragraph.
void LinePlaces::Place() {
    const QString text = layout_.text();
    const std::vector<int> starts = Starts(layout_, line_);
    const Edges ways[] = {EdgesOf(layout_, line_, starts, false),
                          EdgesOf(layout_, line_, starts, true)};
    Neighbours neighbours{line_.x() + DrawnWidth() + TrailingSpacesWidth(layout_, line_),
                          line_.x()};
    for (std::size_t i = 0; i < starts.size(); ++i) {
        const bool same =
            ways[0].leading[i] == ways[1].leading[i] && ways[0].trailing[i] == ways[1].trailing[i];
        bool rightToLeft = ways[0].trailing[i] < ways[0].leading[i];
        if (same && ways[0].WidthOf(i) == 0 && i > 0) rightToLeft = characters_.back().rightToLeft;
        const bool isTab = text[starts[i]] == u'\t';
        if (isTab)
            rightToLeft = IsRightToLeft(layout_);
        else if (!same)
            rightToLeft = DrawnRightToLeft(starts[i]).value_or(
                HasRightDirection(ways[1], ways[0], i, IsSpace(text[starts[i]]), neighbours));
        const double leading = ways[rightToLeft].leading[i] - line_.x();
        const double trailing = ways[rightToLeft].trailing[i] - line_.x();
        const auto [left, right] = std::minmax({leading, trailing});
        characters_.push_back({starts[i], leading, {left, right}, rightToLeft, isTab});
        neighbours.before = ways[rightToLeft].trailing[i];
    }
    MoveAfterCutItem();
    JoinLigatures();
    SetOrder();
    JoinNeighbours();
    DropSpaces();
    SetOrder();
    SetEnds();
}

// Qt 6.4 lays a line out in items of one script and font. Where the line ends within one, that
// counts with one glyph of its last character: what is to the right is reported too near by the
// others, as by a letter under its mark from right to left.
void LinePlaces::MoveAfterCutItem() {
    // A soft hyphen that is not drawn has a width in the line's, but no place.
    if (!IsWrapped(layout_, line_) || HasSoftHyphen(layout_, line_)) return;
    const std::size_t first = StartOfLastItem();
    TextExtent item = characters_[first].extent;
    for (std::size_t i = first; i < characters_.size(); ++i)
        item = {std::min(item.left, characters_[i].extent.left),
                std::max(item.right, characters_[i].extent.right)};
    double end = 0; // of the others
    for (std::size_t i = 0; i < first; ++i)
        end = std::max(end, characters_[i].extent.right);
    const double ink =
        line_.naturalTextWidth() - line_.horizontalAdvance(); // is not stretched over
    const double lineEnd = DrawnWidth() - (IsStretched() ? ink : 0), missing = lineEnd - end;
    const TextExtent& last = characters_.back().extent;
    if (item.right > lineEnd - edgeRounding || missing <= edgeRounding ||
        missing > last.right - last.left + edgeRounding)
        return;
    for (std::size_t i = 0; i < first; ++i) {
        Character& each = characters_[i];
        if (each.extent.left < item.right - missing - edgeRounding) continue;
        each.caret += missing;
        each.extent.left += missing;
        each.extent.right += missing;
    }
}

// Of the characters that stand beside each other up to the last one, in its direction.
std::size_t LinePlaces::StartOfLastItem() const {
    std::size_t first = characters_.size() - 1;
    for (; first > 0; --first) {
        const Character &each = characters_[first - 1], &next = characters_[first];
        const double gap = next.rightToLeft ? each.extent.left - next.extent.right
                                            : each.extent.right - next.extent.left;
        if (each.rightToLeft != next.rightToLeft || std::abs(gap) > edgeRounding) break;
    }
    return first;
}

// Each part of a ligature is reported to end with all of it. Some are said to begin with it, too:
// the first has it then.
void LinePlaces::JoinLigatures() {
    for (std::size_t i = 0; i + 1 < characters_.size(); ++i) {
        Character& each = characters_[i];
        Character& next = characters_[i + 1];
        if (each.rightToLeft != next.rightToLeft) continue;
        double& trailing = each.rightToLeft ? each.extent.left : each.extent.right;
        if (next.caret > each.extent.left + edgeRounding &&
            next.caret < each.extent.right - edgeRounding)
            trailing = next.caret;
        else if (next.extent.left == each.extent.left && next.extent.right == each.extent.right)
            next.caret = next.extent.left = next.extent.right = trailing;
    }
}

void LinePlaces::SetOrder() {
    order_.resize(characters_.size());
    std::iota(order_.begin(), order_.end(), std::size_t(0));
    // Of several at the same place that have no width, each in its direction.
    const auto place = [&](std::size_t i) {
        const Character& each = characters_[i];
        return std::pair(each.extent.left + each.extent.right,
                         each.rightToLeft ? -each.start : each.start);
    };
    std::sort(order_.begin(), order_.end(),
              [&](std::size_t a, std::size_t b) { return place(a) < place(b); });
}

// Only where a character begins is reported rightly for a tab, and for one of several glyphs.
void LinePlaces::JoinNeighbours() {
    if (order_.empty()) return;
    for (std::size_t i = 0; i + 1 < order_.size(); ++i) {
        Character& left = characters_[order_[i]];
        Character& right = characters_[order_[i + 1]];
        if (!left.rightToLeft && !(right.isTab && right.rightToLeft))
            left.extent.right = std::max(left.extent.left, right.extent.left);
        else if (right.rightToLeft)
            right.extent.left = std::min(right.extent.right, left.extent.right);
    }
    Character& first = characters_[order_.front()];
    if (first.rightToLeft) first.extent.left = std::min(first.extent.right, 0.0);
}

// Spaces that are not drawn are reported at their places.
void LinePlaces::DropSpaces() {
    std::vector<TextExtent> spaces;
    for (; !characters_.empty() && characters_.back().start >= drawnEnd_; characters_.pop_back())
        spaces.push_back(characters_.back().extent);
    for (Character& each : characters_) {
        double before = 0;
        for (const TextExtent& space : spaces)
            if (space.right <= each.extent.left + edgeRounding) before += space.right - space.left;
        each.caret -= before;
        each.extent.left -= before;
        each.extent.right -= before;
    }
    while (!characters_.empty() && characters_.back().start >= textEnd_)
        characters_.pop_back();
}

bool LinePlaces::IsStretched() const {
    return line_.naturalTextRect().width() > line_.naturalTextWidth() + edgeRounding;
}

double LinePlaces::DrawnWidth() const {
    return IsStretched() ? line_.width() : line_.horizontalAdvance();
}

void LinePlaces::SetEnds() {
    if (order_.empty()) return;
    const double end = DrawnWidth();
    const bool isWhole = textEnd_ == drawnEnd_ && !(IsStretched() && IsRightToLeft(layout_));
    const Character& first = characters_[order_.front()];
    Character& last = characters_[order_.back()];
    if (!last.rightToLeft && isWhole) last.extent.right = std::max(last.extent.right, end);
    endCaret_ = IsRightToLeft(layout_) ? first.extent.left : last.extent.right;
    if (!IsWrapped(layout_, line_)) return;
    const Character& after = characters_.back();
    endCaret_ = after.rightToLeft ? after.extent.left : after.extent.right;
}
