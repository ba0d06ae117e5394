#include "platform/none/none_text_lines.h"

#include "common/text_words.h"

#include <algorithm>
#include <cmath>
#include <limits>

NoneTextLines::NoneTextLines(const ParagraphText& paragraph, NoneClusters clusters,
                             std::vector<NoneLine> lines)
    : clusters_(std::move(clusters)), lines_(std::move(lines)), runs_(paragraph.runs),
      rightToLeft_(paragraph.rightToLeft) {}

int NoneTextLines::LineOf(TextPos position) const {
    const auto after =
        std::upper_bound(lines_.begin() + 1, lines_.end(), position,
                         [](TextPos at, const NoneLine& each) { return at < each.line.start; });
    return int(after - lines_.begin() - 1);
}

std::size_t NoneTextLines::IndexIn(const NoneLine& line, TextPos position) const {
    if (position >= line.line.end) return line.end;
    return clusters_.IndexAt(std::max(position, line.line.start));
}

double NoneTextLines::CaretX(const NoneLine& line, std::size_t index) const {
    if (index >= line.visibleEnd) return rightToLeft_ ? 0 : line.line.width;
    const NoneCluster& cluster = Cluster(index);
    return cluster.level % 2 == 1 ? cluster.left + cluster.width : cluster.left;
}

double NoneTextLines::CaretX(int line, TextPos position) const {
    return CaretX(At(line), IndexIn(At(line), position));
}

// Of a wrapped line its end is the next one's start.
std::size_t NoneTextLines::EndOfPlaces(int line) const {
    return At(line).end + (line + 1 == Count() ? 1 : 0);
}

TextPos NoneTextLines::PositionAt(int index, double x) const {
    const NoneLine& line = At(index);
    std::size_t nearest = line.first;
    for (std::size_t i = line.first; i < EndOfPlaces(index); ++i)
        if (std::abs(CaretX(line, i) - x) < std::abs(CaretX(line, nearest) - x)) nearest = i;
    return clusters_.StartOf(nearest);
}

TextPos NoneTextLines::CharacterAt(int index, double x) const {
    const NoneLine& line = At(index);
    std::size_t nearest = line.first;
    double distance = std::numeric_limits<double>::max();
    for (const std::size_t i : line.order) {
        const NoneCluster& each = Cluster(i);
        if (each.width <= 0) continue;
        const double beside = std::max({each.left - x, x - each.left - each.width, 0.0});
        if (beside < distance) nearest = i;
        distance = std::min(distance, beside);
    }
    return clusters_.StartOf(nearest);
}

TextExtent NoneTextLines::CharacterExtent(int line, TextPos position) const {
    const std::size_t index = IndexIn(At(line), position);
    if (index >= At(line).visibleEnd) {
        const double end = CaretX(At(line), index);
        return {end, end};
    }
    return {Cluster(index).left, Cluster(index).left + Cluster(index).width};
}

std::vector<TextExtent> NoneTextLines::Extents(int index, TextPos start, TextPos end) const {
    const NoneLine& line = At(index);
    const std::size_t from = IndexIn(line, start), to = IndexIn(line, end);
    std::vector<TextExtent> extents;
    bool joins = false; // the one to the left is covered, too
    for (const std::size_t i : line.order) {
        const NoneCluster& each = Cluster(i);
        const bool covered = i >= from && i < to;
        if (covered && each.width > 0) {
            if (!joins) extents.push_back({each.left, each.left});
            extents.back().right = each.left + each.width;
        }
        if (each.width > 0) joins = covered;
    }
    return extents;
}

TextPos NoneTextLines::NextPosition(TextPos position) const {
    if (position >= Length()) return Length();
    return position < 0 ? 0 : clusters_.StartOf(clusters_.IndexAt(position) + 1);
}

TextPos NoneTextLines::PreviousPosition(TextPos position) const {
    if (position <= 0) return 0;
    return clusters_.StartOf(clusters_.IndexAt(std::min(position, Length()) - 1));
}

std::vector<std::size_t> NoneTextLines::CaretPlaces(int index) const {
    const NoneLine& line = At(index);
    std::vector<std::size_t> unseen;
    for (std::size_t i = line.visibleEnd; i < EndOfPlaces(index); ++i)
        unseen.push_back(i);
    std::vector<std::size_t> places = line.order;
    if (rightToLeft_)
        places.insert(places.begin(), unseen.rbegin(), unseen.rend());
    else
        places.insert(places.end(), unseen.begin(), unseen.end());
    return places;
}

TextPos NoneTextLines::Beside(TextPos position, bool right) const {
    position = std::clamp(position, 0, Length());
    const int line = LineOf(position);
    const auto places = CaretPlaces(line);
    const auto place = std::find(places.begin(), places.end(), clusters_.IndexAt(position));
    if (place != (right ? places.end() - 1 : places.begin()))
        return clusters_.StartOf(right ? *(place + 1) : *(place - 1));
    const int other = right == rightToLeft_ ? line - 1 : line + 1;
    if (other < 0 || other >= Count()) return clusters_.StartOf(*place);
    const auto beyond = CaretPlaces(other);
    return clusters_.StartOf(right ? beyond.front() : beyond.back());
}

TextPos NoneTextLines::NextWord(TextPos position) const {
    const std::vector<TextPos> starts = WordStarts(clusters_.text);
    const auto next = std::upper_bound(starts.begin(), starts.end(), position);
    return next == starts.end() ? Length() : *next;
}

TextPos NoneTextLines::PreviousWord(TextPos position) const {
    const std::vector<TextPos> starts = WordStarts(clusters_.text);
    const auto next = std::lower_bound(starts.begin(), starts.end(), position);
    return next == starts.begin() ? 0 : *(next - 1);
}

CharSpan NoneTextLines::WordAt(TextPos position) const {
    const std::vector<TextPos> boundaries = WordBoundaries(clusters_.text);
    if (boundaries.size() < 2) return {};
    const auto next = std::upper_bound(boundaries.begin() + 1, boundaries.end() - 1, position);
    return {*(next - 1), *next - *(next - 1)};
}
