#include "platform/windows/line_layout/line_breaker.h"

#include <numeric>

namespace {

struct LevelRun {
    VisualPiece piece;
    BYTE level = 0;
};

std::vector<LevelRun> LevelRuns(const TextUnits& text, const ShapedText& shaped,
                                const BrokenLine& line) {
    std::vector<LevelRun> runs;
    // They stand where the paragraph ends, whatever is before them.
    const std::size_t spaces = StartOfTrailingSpaces(text, line);
    const auto end = static_cast<std::size_t>(line.line.end);
    for (auto at = static_cast<std::size_t>(line.line.start); at < end; ++at) {
        // A character is not divided.
        const bool continues =
            !runs.empty() && (!text.units[at].caret || text.units[at].inLigature);
        const BYTE level = continues     ? runs.back().level
                           : at < spaces ? text.units[at].level
                                         : text.baseLevel;
        if (runs.empty() || runs.back().level != level)
            runs.push_back({{at, at, 0, 0, level % 2 != 0}, level});
        runs.back().piece.end = at + 1;
        runs.back().piece.width += shaped.widths[at];
    }
    return runs;
}

// The runs in their order on the screen.
std::vector<int> VisualOrder(const std::vector<LevelRun>& runs) {
    std::vector<int> order(runs.size());
    std::iota(order.begin(), order.end(), 0);
    std::vector<BYTE> levels;
    levels.reserve(runs.size());
    for (const LevelRun& run : runs)
        levels.push_back(run.level);
    const Uniscribe* const uniscribe = LoadUniscribe();
    if (uniscribe && runs.size() > 1)
        uniscribe->layout(static_cast<int>(levels.size()), levels.data(), order.data(), nullptr);
    return order;
}

} // namespace

std::size_t StartOfTrailingSpaces(const TextUnits& text, const BrokenLine& line) {
    std::size_t at = line.visibleEnd;
    while (at > static_cast<std::size_t>(line.line.start) && text.units[at - 1].IsBlank())
        --at;
    return at;
}

void PlacePieces(const TextUnits& text, const ShapedText& shaped, BrokenLine& line) {
    const std::vector<LevelRun> runs = LevelRuns(text, shaped, line);
    int left = 0;
    for (const int index : VisualOrder(runs)) {
        VisualPiece piece = runs[static_cast<std::size_t>(index)].piece;
        piece.left = left;
        left += piece.width;
        line.pieces.push_back(piece);
    }
    line.line.width = left;
}
