#include "formats/plain/visual_lines.h"

#include "common/bidi_levels.h"
#include "common/unicode.h"

#include <algorithm>
#include <vector>

namespace {
constexpr std::u16string_view mirrored = u"()[]{}<>\u00AB\u00BB\u2039\u203A"; // in pairs

template <class Unit>
bool EndsLine(Unit unit) {
    return unit == '\n' || unit == '\r' || unit == '\f';
}

// Where the stretch ends but for its line end, and with it.
struct StretchEnd {
    std::size_t line, all;
};

template <class Unit>
StretchEnd EndOfStretch(std::basic_string_view<Unit> text, std::size_t start) {
    const std::size_t limit = std::min(text.size(), start + maxVisualStretch);
    std::size_t end = start;
    while (end < limit && !EndsLine(text[end]))
        ++end;
    if (end == limit) return {end, end};
    const bool ofTwo = text[end] == '\r' && end + 1 < text.size() && text[end + 1] == '\n';
    return {end, end + (ofTwo ? 2 : 1)};
}

struct LetterCounts {
    int rightToLeft = 0, leftToRight = 0;
    bool beginsLeftToRight = false, endsLeftToRight = false; // the first and last of all letters
    bool hasNumbers = false; // or anything else that is not simply in the direction of the letters
};

LetterCounts CountLetters(std::u16string_view line) {
    LetterCounts counts;
    for (const char16_t unit : line) {
        const Direction direction = StrongDirection(unit);
        if (direction == Direction::LeftToRight && counts.rightToLeft == 0)
            counts.beginsLeftToRight = true;
        if (direction != Direction::Neutral)
            counts.endsLeftToRight = direction == Direction::LeftToRight;
        counts.leftToRight += direction == Direction::LeftToRight;
        counts.rightToLeft += direction == Direction::RightToLeft;
        counts.hasNumbers = counts.hasNumbers || (unit >= u'0' && unit <= u'9') || unit == u'\t' ||
                            (unit >= 0x80 && direction == Direction::Neutral);
    }
    return counts;
}

// A line of another language with a Hebrew word in it. One that is Hebrew for the most part is read
// from the right, whatever it begins with.
bool ReadsFromLeft(const LetterCounts& counts) {
    return counts.beginsLeftToRight && counts.endsLeftToRight &&
           counts.leftToRight > 2 * counts.rightToLeft;
}

// A bidirectional text that is ordered once more as if it were logical is in logical order: what
// was turned around is turned back.
struct Reordering {
    std::vector<BidiLevel> levels;  // in visual order
    std::vector<std::size_t> order; // of each place in logical order the one in visual order
};

bool IsPoint(char16_t unit) {
    return BidiClassOf(unit) == BidiClass::NSM;
}

// A bidirectional algorithm leaves points after their letters, so that the first letter of a word
// has them at the word's visual end; where a line was simply turned around none stand there.
bool HasPointsAfterLetters(std::u16string_view visualLine) {
    for (std::size_t i = 0; i < visualLine.size(); ++i) {
        if (!IsPoint(visualLine[i])) continue;
        if (i + 1 == visualLine.size()) return true;
        const char16_t next = visualLine[i + 1];
        if (!IsPoint(next) && StrongDirection(next) != Direction::RightToLeft) return true;
    }
    return false;
}

void PutLettersBeforePoints(std::u16string_view visualLine, std::vector<std::size_t>& order) {
    for (auto at = order.begin(); at != order.end();) {
        const auto after =
            std::find_if(at, order.end(), [&](std::size_t i) { return !IsPoint(visualLine[i]); });
        if (after == order.end()) break;
        std::reverse(at, after + 1);
        at = after + 1;
    }
}

Reordering ReorderingOf(std::u16string_view line) {
    const LetterCounts counts = CountLetters(line);
    Reordering result;
    if (counts.rightToLeft == 0) {
        result.levels.assign(line.size(), 0);
    } else if (counts.leftToRight == 0 && !counts.hasNumbers) {
        result.levels.assign(line.size(), 1);
    } else {
        const bool rightToLeft = !ReadsFromLeft(counts);
        result.levels = BidiLevels(line, rightToLeft);
        ResetLineLevels(line, 0, TextPos(line.size()), rightToLeft, result.levels);
    }
    result.order = VisualOrder(result.levels);
    if (std::ranges::any_of(line, IsPoint) && HasPointsAfterLetters(line))
        PutLettersBeforePoints(line, result.order);
    return result;
}

char16_t Mirrored(char16_t unit) {
    const std::size_t at = mirrored.find(unit);
    return at == mirrored.npos ? unit : mirrored[at ^ 1];
}

struct Stretch {
    std::size_t start = 0, end = 0; // without the line end
};

Stretch StretchWith(std::u16string_view text, std::size_t place) {
    for (std::size_t start = 0; start < text.size();) {
        const StretchEnd end = EndOfStretch(text, start);
        if (place < end.all) return {start, end.line};
        start = end.all;
    }
    return {text.size(), text.size()};
}
} // namespace

std::size_t VisualStretchEnd(std::string_view bytes, std::size_t start) {
    return EndOfStretch(bytes, start).all;
}

void ReorderVisualLines(std::u16string& text) {
    std::u16string line;
    for (std::size_t start = 0; start < text.size();) {
        const StretchEnd end = EndOfStretch(std::u16string_view(text), start);
        line.assign(text, start, end.line - start);
        const Reordering reordering = ReorderingOf(line);
        for (std::size_t i = 0; i < line.size(); ++i) {
            const std::size_t from = reordering.order[i];
            text[start + i] = reordering.levels[from] % 2 != 0 ? Mirrored(line[from]) : line[from];
        }
        start = end.all;
    }
}

std::u16string InVisualOrder(std::u16string_view logical) {
    std::u16string text(logical);
    ReorderVisualLines(text); // what puts one order into the other does so both ways
    return text;
}

std::size_t VisualPlaceOf(std::u16string_view visualText, std::size_t logicalPlace) {
    const Stretch stretch = StretchWith(visualText, logicalPlace);
    if (logicalPlace >= stretch.end) return logicalPlace;
    const auto line = visualText.substr(stretch.start, stretch.end - stretch.start);
    return stretch.start + ReorderingOf(line).order[logicalPlace - stretch.start];
}

std::size_t LogicalPlaceOf(std::u16string_view visualText, std::size_t visualPlace) {
    const Stretch stretch = StretchWith(visualText, visualPlace);
    if (visualPlace >= stretch.end) return visualPlace;
    const auto line = visualText.substr(stretch.start, stretch.end - stretch.start);
    const auto order = ReorderingOf(line).order;
    return stretch.start +
           static_cast<std::size_t>(std::ranges::find(order, visualPlace - stretch.start) -
                                    order.begin());
}
