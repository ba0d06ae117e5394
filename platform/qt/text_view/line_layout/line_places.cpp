#include "platform/qt/text_view/line_layout/line_places.h"

#include "platform/qt/text_view/line_layout/line_edges.h"

#include <QGlyphRun>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {
constexpr double rounding = 1.0 / 32; // Qt counts in 64ths of a pixel

bool IsSpace(QChar unit) {
    return unit.isSpace() && unit != QChar::LineSeparator;
}

bool IsBreakingSpace(QChar unit) {
    return IsSpace(unit) && unit.decompositionTag() != QChar::NoBreak;
}

int LineEnd(const QTextLine& line) {
    return line.textStart() + line.textLength();
}

int SpacesStart(const QTextLayout& layout, const QTextLine& line) {
    const QString text = layout.text();
    int end = LineEnd(line);
    while (end > line.textStart()) {
        const int before = PreviousCharacter(layout, end);
        if (!IsBreakingSpace(text[before]) || text[before] == u'\t') break;
        end = std::max(line.textStart(), before);
    }
    return end;
}

bool EndsWithTab(const QTextLayout& layout, const QTextLine& line) {
    return line.textLength() > 0 && layout.text()[LineEnd(line) - 1] == u'\t';
}

// Where what is not drawn starts: a tab that did not fit, or spaces.
int DrawnEnd(QTextLayout& layout, const QTextLine& line) {
    if (TrailingSpacesWidth(layout, line) <= rounding) return LineEnd(line);
    return EndsWithTab(layout, line) ? LineEnd(line) - 1 : SpacesStart(layout, line);
}

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

// Of a character that is not drawn, whose direction Qt does not tell: `others` are of the wrong
// one, where it has no width though it is a space, or is not behind the character before it, which
// ends at `before`.
bool IsAskedRightly(const Edges& edges, const Edges& others, std::size_t i, bool isSpace,
                    double before) {
    const double width = edges.WidthOf(i), other = others.WidthOf(i);
    if (isSpace && (width > rounding) != (other > rounding)) return width > rounding;
    const bool follows = std::abs(edges.leading[i] - before) < rounding;
    const bool otherFollows = std::abs(others.leading[i] - before) < rounding;
    return follows != otherFollows ? follows : width < other;
}

std::vector<int> Starts(const QTextLayout& layout, const QTextLine& line) {
    std::vector<int> starts;
    const int end = LineEnd(line);
    for (int at = line.textStart(); at < end; at = NextCharacter(layout, at))
        starts.push_back(at);
    return starts;
}
} // namespace

LinePlaces::LinePlaces(QTextLayout& layout, const QTextLine& line, bool isUnidirectional)
    : layout_(layout), line_(line), isUnidirectional_(isUnidirectional) {
    drawnEnd_ = textEnd_ = DrawnEnd(layout, line);
    if (IsWrapped(layout, line) && !EndsWithTab(layout, line))
        textEnd_ = std::min(textEnd_, SpacesStart(layout, line));
    if (isUnidirectional_ && IsRightToLeft(layout)) origin_ = AskedCaret(drawnEnd_);
    endCaret_ = AskedCaret(textEnd_);
    if (!isUnidirectional_) Place();
}

double LinePlaces::AskedCaret(int at) const {
    const LineEdges edges(layout_, line_, IsRightToLeft(layout_));
    return edges.Leading(at) - line_.x() - origin_;
}

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
    double before = line_.x(); // where the last one ends
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
                IsAskedRightly(ways[1], ways[0], i, IsSpace(text[starts[i]]), before));
        const double leading = ways[rightToLeft].leading[i] - line_.x();
        const double trailing = ways[rightToLeft].trailing[i] - line_.x();
        const auto [left, right] = std::minmax({leading, trailing});
        characters_.push_back({starts[i], leading, {left, right}, rightToLeft, isTab});
        before = ways[rightToLeft].trailing[i];
    }
    JoinLigatures();
    SetOrder();
    JoinNeighbours();
    DropSpaces();
    SetOrder();
    SetEnds();
}

// Each part of a ligature is reported to end with all of it. Some are said to begin with it, too:
// the first has it then.
void LinePlaces::JoinLigatures() {
    for (std::size_t i = 0; i + 1 < characters_.size(); ++i) {
        Character& each = characters_[i];
        Character& next = characters_[i + 1];
        if (each.rightToLeft != next.rightToLeft) continue;
        double& trailing = each.rightToLeft ? each.extent.left : each.extent.right;
        if (next.caret > each.extent.left + rounding && next.caret < each.extent.right - rounding)
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
            if (space.right <= each.extent.left + rounding) before += space.right - space.left;
        each.caret -= before;
        each.extent.left -= before;
        each.extent.right -= before;
    }
    while (!characters_.empty() && characters_.back().start >= textEnd_)
        characters_.pop_back();
}

void LinePlaces::SetEnds() {
    if (order_.empty()) return;
    const bool isStretched = line_.naturalTextRect().width() > line_.naturalTextWidth() + rounding;
    const double end = isStretched ? line_.width() : line_.horizontalAdvance();
    const bool isWhole = textEnd_ == drawnEnd_ && !(isStretched && IsRightToLeft(layout_));
    const Character& first = characters_[order_.front()];
    Character& last = characters_[order_.back()];
    if (!last.rightToLeft && isWhole) last.extent.right = std::max(last.extent.right, end);
    endCaret_ = IsRightToLeft(layout_) ? first.extent.left : last.extent.right;
    if (!IsWrapped(layout_, line_)) return;
    const Character& behind = characters_.back();
    endCaret_ = behind.rightToLeft ? behind.extent.left : behind.extent.right;
}

const LinePlaces::Character* LinePlaces::At(int at) const {
    const auto behind =
        std::upper_bound(characters_.begin(), characters_.end(), at,
                         [](int place, const Character& each) { return place < each.start; });
    return behind == characters_.begin() ? nullptr : &*std::prev(behind);
}

double LinePlaces::Width() const {
    if (!isUnidirectional_) return order_.empty() ? 0 : characters_[order_.back()].extent.right;
    return std::abs(endCaret_ - AskedCaret(line_.textStart()));
}

double LinePlaces::CaretX(int at) const {
    if (at >= textEnd_) return endCaret_;
    if (isUnidirectional_) return AskedCaret(at);
    const Character* const character = At(at);
    return character ? character->caret : endCaret_;
}

TextExtent LinePlaces::ExtentOf(int at) const {
    if (at >= textEnd_) return {endCaret_, endCaret_};
    if (isUnidirectional_) {
        const auto [left, right] = std::minmax({CaretX(at), CaretX(NextCharacter(layout_, at))});
        return {left, right};
    }
    const Character* const character = At(at);
    return character ? character->extent : TextExtent{endCaret_, endCaret_};
}

std::vector<TextExtent> LinePlaces::Extents(int from, int to) const {
    std::vector<TextExtent> extents;
    if (isUnidirectional_) {
        const auto [left, right] = std::minmax({CaretX(from), CaretX(to)});
        if (right > left) extents.push_back({left, right});
        return extents;
    }
    bool joins = false; // the one to the left is covered, too
    for (const std::size_t i : order_) {
        const Character& each = characters_[i];
        if (each.extent.right <= each.extent.left) continue;
        const bool covered = each.start >= from && each.start < to;
        if (covered && joins)
            extents.back().right = each.extent.right;
        else if (covered)
            extents.push_back(each.extent);
        joins = covered;
    }
    return extents;
}

// Of a line of one direction: how far the character is from the line's start.
double LinePlaces::Along(int at) const {
    return IsRightToLeft(layout_) ? -CaretX(at) : CaretX(at);
}

// The first place from the line's start that is so far from it, or the text's end.
int LinePlaces::FirstAlong(double distance) const {
    int from = line_.textStart(), to = textEnd_;
    while (from < to) {
        const int middle = from + (to - from) / 2;
        const int at = IsCharacterStart(layout_, middle)
                           ? middle
                           : std::max(from, PreviousCharacter(layout_, middle));
        if (Along(at) >= distance)
            to = at;
        else
            from = NextCharacter(layout_, at);
    }
    return std::min(from, textEnd_);
}

int LinePlaces::CharacterAlong(double distance) const {
    const int start = line_.textStart();
    int at = FirstAlong(distance + rounding);
    const auto hasWidth = [&] { return ExtentOf(at).right - ExtentOf(at).left > rounding; };
    while (at > start && (at >= textEnd_ || Along(at) > distance || !hasWidth()))
        at = PreviousCharacter(layout_, at);
    while (at < textEnd_ && !hasWidth())
        at = NextCharacter(layout_, at);
    return at < textEnd_ ? std::max(at, start) : start;
}

int LinePlaces::CharacterAt(double x) const {
    if (isUnidirectional_) return CharacterAlong(IsRightToLeft(layout_) ? -x : x);
    const Character* nearest = nullptr;
    double distance = 0;
    for (const Character& each : characters_) {
        const double away = std::max({0.0, each.extent.left - x, x - each.extent.right});
        if (each.extent.right <= each.extent.left || (nearest && away >= distance)) continue;
        nearest = &each;
        distance = away;
    }
    return nearest ? nearest->start : line_.textStart();
}

int LinePlaces::CaretAlong(double distance) const {
    const int behind = FirstAlong(distance);
    if (behind <= line_.textStart()) return behind;
    const int before = FirstAlong(Along(PreviousCharacter(layout_, behind)));
    return distance - Along(before) <= Along(behind) - distance ? before : behind;
}

int LinePlaces::CaretAt(double x) const {
    if (isUnidirectional_) return CaretAlong(IsRightToLeft(layout_) ? -x : x);
    int nearest = textEnd_;
    double distance = std::abs(endCaret_ - x);
    for (auto each = characters_.rbegin(); each != characters_.rend(); ++each) {
        if (std::abs(each->caret - x) > distance) continue;
        nearest = each->start;
        distance = std::abs(each->caret - x);
    }
    return nearest;
}

std::vector<int> LinePlaces::CaretOrder() const {
    std::vector<int> starts;
    if (isUnidirectional_) {
        for (int at = line_.textStart(); at < textEnd_; at = NextCharacter(layout_, at))
            starts.push_back(at);
        if (IsRightToLeft(layout_)) std::reverse(starts.begin(), starts.end());
        return starts;
    }
    std::vector<const Character*> sorted;
    for (const Character& each : characters_)
        sorted.push_back(&each);
    if (IsRightToLeft(layout_)) std::reverse(sorted.begin(), sorted.end());
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const Character* a, const Character* b) { return a->caret < b->caret; });
    for (const Character* each : sorted)
        starts.push_back(each->start);
    return starts;
}
