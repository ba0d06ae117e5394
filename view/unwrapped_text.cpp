#include "view/unwrapped_text.h"

#include "common/unicode.h"
#include "common/utf.h"
#include "formats/plain/flowing_lines.h"
#include "formats/plain/line_traits.h"

#include <algorithm>
#include <vector>

namespace {
constexpr TextPos pieceUnits = 8 * 1024;
constexpr std::size_t maxPieces = 16; // more than the longest paragraph has

constexpr TextPos lineReach = static_cast<TextPos>(maxPageLine) + 1;
constexpr int linesReached = static_cast<int>(linesAround) + 2;

// Up to so many lines before and after a place, and of a longer line than a page's a part that
// shows its length.
TextPos StartOfLinesBefore(const TextSource& text, TextPos position) {
    for (int i = 0; i < linesReached && position > 0; ++i) {
        const TextPos from = position - 1 - lineReach;
        const TextPos lineBreak = text.LastBreak(from, position - 1);
        if (lineBreak < 0) return std::max(from, 0);
        position = lineBreak + 1;
    }
    return position;
}

TextPos EndOfLinesAfter(const TextSource& text, TextPos position) {
    for (int i = 0; i < linesReached && position < text.Length(); ++i) {
        const TextPos lineBreak = text.FirstBreak(position, position + lineReach + 1);
        if (lineBreak < 0) return std::min(position + lineReach + 1, text.Length());
        position = lineBreak + 1;
    }
    return position;
}

// Nothing where no space was in the text that was broken: after a hyphen or a dash, and between
// letters of a script that has none.
char16_t ShownLineEnd(std::u16string_view above, std::u16string_view below) {
    constexpr char16_t nothing = u'\u200B', space = u' '; // a zero-width space may be broken at
    constexpr std::u16string_view hyphens = u"-\u00AD\u2010\u2014";
    const char16_t last = above.back();
    if (IsSpaceCharacter(last)) return nothing;
    const bool isWord = above.size() > 1 && !IsSpaceCharacter(above[above.size() - 2]);
    if (hyphens.find(last) != hyphens.npos && isWord) return nothing;
    const char32_t lastCharacter = FirstCharacter(
        above.substr(above.size() - (IsLowSurrogate(last) && above.size() > 1 ? 2 : 1)));
    return IsWide(lastCharacter) && IsWide(FirstCharacter(below.substr(0, 2))) ? nothing : space;
}
} // namespace

std::u16string UnwrappedText::Unwrapped(TextPos start, TextPos end) const {
    const TextPos from = StartOfLinesBefore(*text_, start), to = EndOfLinesAfter(*text_, end);
    std::u16string units = text_->Range(from, to);
    const std::u16string before = units;
    const auto lines = LinesOf(before);
    const std::vector<bool> flowing = FlowingLines(lines);
    std::size_t at = 0;
    for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
        at += lines[i].size();
        if (flowing[i]) units[at] = ShownLineEnd(lines[i], lines[i + 1]);
        ++at;
    }
    return units.substr(static_cast<std::size_t>(start - from),
                        static_cast<std::size_t>(end - start));
}

TextPiece UnwrappedText::PieceAt(TextPos position) const {
    const TextPos start = position / pieceUnits * pieceUnits;
    const auto known = std::ranges::find(pieces_, start, &Piece::start);
    if (known != pieces_.end()) {
        pieces_.splice(pieces_.begin(), pieces_, known);
    } else {
        const TextPos end = std::min(start + pieceUnits, Length());
        pieces_.push_front({start, Unwrapped(start, end)});
        if (pieces_.size() > maxPieces) pieces_.pop_back();
    }
    return {start, pieces_.front().units};
}
