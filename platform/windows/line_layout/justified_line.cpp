#include "platform/windows/line_layout/line_breaker.h"

namespace {

// The spaces between words: none in front of the first one.
std::vector<std::size_t> SpacesBetweenWords(const TextUnits& text, const BrokenLine& line) {
    std::vector<std::size_t> spaces;
    bool inText = false;
    for (auto at = static_cast<std::size_t>(line.line.start); at < line.visibleEnd; ++at) {
        const TextUnit& unit = text.units[at];
        if (inText && text.text[at] == L' ' && unit.kind == UnitKind::Text) spaces.push_back(at);
        if (!unit.isSpace) inText = true;
    }
    return spaces;
}

} // namespace

bool JustifyLine(const TextUnits& text, ShapedText& shaped, BrokenLine& line, int room) {
    int width = 0;
    for (auto at = static_cast<std::size_t>(line.line.start); at < line.visibleEnd; ++at) {
        if (text.units[at].kind == UnitKind::Tab) return false;
        width += shaped.widths[at];
    }
    const std::vector<std::size_t> spaces = SpacesBetweenWords(text, line);
    if (spaces.empty() || width > room) return false;
    const int missing = room - width, count = static_cast<int>(spaces.size());
    int given = 0;
    for (int space = 0; space < count; ++space) {
        const int until = static_cast<int>(static_cast<long long>(missing) * (space + 1) / count);
        const std::size_t unit = spaces[static_cast<std::size_t>(space)];
        ChangeWidth(shaped, unit, shaped.widths[unit] + until - given);
        given = until;
    }
    return true;
}
