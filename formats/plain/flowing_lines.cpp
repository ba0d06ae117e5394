#include "formats/plain/flowing_lines.h"

#include "formats/plain/line_traits.h"

#include <algorithm>
#include <iterator>

namespace {
using Traits = std::vector<LineTraits>;

constexpr int minLineLength = 50; // columns; narrower texts are lists and most verse
// Columns that a line may be shorter than it could be: not every program filled lines alike. A line
// that continues in a small letter within a sentence was counted in bytes, perhaps.
constexpr int slack = 3, sentenceSlack = 5; // the second a share of the length: a fifth
constexpr std::size_t minLinesForShare = 10;
constexpr std::size_t minStanza = 3; // lines

struct Range {
    std::size_t first = 0, last = 0;
};

// Whether a line end could be one within a paragraph.
bool IsInner(const Traits& traits, std::size_t line) {
    const LineTraits &above = traits[line], &below = traits[line + 1];
    return !above.isBlank && !below.isBlank && !below.isIndented;
}

bool CanFlow(const Traits& traits, std::size_t line) {
    const LineTraits &above = traits[line], &below = traits[line + 1];
    return IsInner(traits, line) && !above.standsAlone && !below.standsAlone && !below.isItem;
}

Range Around(const Traits& traits, std::size_t line) {
    Range range{line, line + 1};
    while (range.first > 0 && line - range.first < linesAround &&
           !traits[range.first - 1].isTooLong)
        --range.first;
    while (range.last + 1 < traits.size() && range.last - line < linesAround &&
           !traits[range.last + 1].isTooLong)
        ++range.last;
    return range;
}

// The lines between two blank ones.
Range StanzaAround(const Traits& traits, Range within, std::size_t line) {
    Range stanza{line, line + 1};
    while (stanza.first > within.first && !traits[stanza.first - 1].isBlank)
        --stanza.first;
    while (stanza.last < within.last && !traits[stanza.last + 1].isBlank)
        ++stanza.last;
    return stanza;
}

// The length that the lines were broken at: most that could be are near it, a few are wider.
int LineLength(const Traits& traits, Range around) {
    std::vector<int> widths;
    for (std::size_t i = around.first; i < around.last; ++i)
        if (IsInner(traits, i)) widths.push_back(traits[i].width);
    if (widths.empty()) return 0;
    const std::size_t at =
        widths.size() >= minLinesForShare ? widths.size() * 9 / 10 : widths.size() - 1;
    const auto nth = widths.begin() + static_cast<std::ptrdiff_t>(at);
    std::nth_element(widths.begin(), nth, widths.end());
    return *nth;
}

// Whether the word below would not have fitted.
bool IsFull(const Traits& traits, std::size_t line, int lineLength) {
    return traits[line].width + 1 + traits[line + 1].firstWord > lineLength;
}

// Lines that end where a sentence or a verse does are as long as they are.
bool IsFilledText(const Traits& traits, Range around, int lineLength) {
    int inner = 0, full = 0;
    for (std::size_t i = around.first; i < around.last; ++i) {
        if (!IsInner(traits, i)) continue;
        ++inner;
        full += IsFull(traits, i, lineLength - slack) ? 1 : 0;
    }
    return 2 * full >= inner;
}

// Each line of a stanza begins with a capital, and so do most of those around it: even of a
// language that writes its nouns so, fewer do.
bool IsVerse(const Traits& traits, Range around, Range stanza) {
    if (stanza.last - stanza.first + 1 < minStanza) return false;
    for (std::size_t i = stanza.first; i <= stanza.last; ++i)
        if (!traits[i].startsWithCapital) return false;
    int inner = 0, capital = 0;
    for (std::size_t i = around.first; i < around.last; ++i) {
        if (!IsInner(traits, i)) continue;
        ++inner;
        capital += traits[i + 1].startsWithCapital ? 1 : 0;
    }
    return 3 * capital >= 2 * inner;
}

bool Flows(const Traits& traits, std::size_t line) {
    if (!CanFlow(traits, line)) return false;
    const Range around = Around(traits, line);
    const int lineLength = LineLength(traits, around);
    if (lineLength < minLineLength) return false;
    const bool isWithinSentence = traits[line + 1].startsWithSmall && !traits[line].endsSentence;
    const int missing = isWithinSentence ? lineLength / sentenceSlack : slack;
    return IsFull(traits, line, lineLength - missing) && IsFilledText(traits, around, lineLength) &&
           !IsVerse(traits, around, StanzaAround(traits, around, line));
}
} // namespace

std::vector<std::u16string_view> LinesOf(std::u16string_view text) {
    std::vector<std::u16string_view> lines;
    for (std::size_t at = 0; at <= text.size();) {
        const std::size_t end = std::min(text.find(u'\n', at), text.size());
        lines.push_back(text.substr(at, end - at));
        at = end + 1;
    }
    return lines;
}

std::vector<bool> FlowingLines(std::span<const std::u16string_view> lines) {
    Traits traits;
    traits.reserve(lines.size());
    std::ranges::transform(lines, std::back_inserter(traits), TraitsOf);
    std::vector<bool> flowing(lines.size());
    for (std::size_t i = 0; i + 1 < lines.size(); ++i)
        flowing[i] = Flows(traits, i);
    return flowing;
}
