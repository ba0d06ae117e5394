#include "platform/qt/text_view/line_layout/line_places.h"

#include "platform/qt/text_view/line_layout/line_edges.h"

#include <algorithm>
#include <cmath>

namespace {
bool IsBreakingSpace(QChar unit) {
    return IsSpace(unit) && unit.decompositionTag() != QChar::NoBreak;
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
    if (TrailingSpacesWidth(layout, line) <= edgeRounding) return LineEnd(line);
    return EndsWithTab(layout, line) ? LineEnd(line) - 1 : SpacesStart(layout, line);
}
} // namespace

LinePlaces::LinePlaces(QTextLayout& layout, const QTextLine& line, bool isUnidirectional)
    : layout_(layout), line_(line), isUnidirectional_(isUnidirectional) {
    drawnEnd_ = textEnd_ = DrawnEnd(layout, line);
    if (IsWrapped(layout, line) && !EndsWithTab(layout, line))
        textEnd_ = std::min(textEnd_, SpacesStart(layout, line));
    if (isUnidirectional_ && IsRightToLeft(layout)) origin_ = QueryCaret(drawnEnd_);
    endCaret_ = QueryCaret(textEnd_);
    if (!isUnidirectional_) Place();
}

double LinePlaces::QueryCaret(int at) const {
    const LineEdges edges(layout_, line_, IsRightToLeft(layout_));
    return edges.Leading(at) - line_.x() - origin_;
}

const LinePlaces::Character* LinePlaces::At(int at) const {
    const auto after =
        std::upper_bound(characters_.begin(), characters_.end(), at,
                         [](int place, const Character& each) { return place < each.start; });
    return after == characters_.begin() ? nullptr : &*std::prev(after);
}

double LinePlaces::Width() const {
    if (!isUnidirectional_) return order_.empty() ? 0 : characters_[order_.back()].extent.right;
    return std::abs(endCaret_ - QueryCaret(line_.textStart()));
}

double LinePlaces::CaretX(int at) const {
    if (at >= textEnd_) return endCaret_;
    if (isUnidirectional_) return QueryCaret(at);
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
    int at = FirstAlong(distance + edgeRounding);
    const auto hasWidth = [&] { return ExtentOf(at).right - ExtentOf(at).left > edgeRounding; };
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
    const int after = FirstAlong(distance);
    if (after <= line_.textStart()) return after;
    const int before = FirstAlong(Along(PreviousCharacter(layout_, after)));
    return distance - Along(before) <= Along(after) - distance ? before : after;
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
