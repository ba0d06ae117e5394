#include "platform/windows/text_pane/accessibility/text_search.h"

namespace {
constexpr TextPos searchPiece = 256 * 1024; // units looked at together
constexpr int maxPieces = 64;

// The place in the units, or npos.
std::size_t LastIn(const TextSearch& search, std::u16string_view units) {
    std::size_t last = std::u16string_view::npos;
    for (std::size_t at = search.FindIn(units, 0); at != std::u16string_view::npos;
         at = search.FindIn(units, at + 1))
        last = at;
    return last;
}
} // namespace

// Neighbouring pieces have so much in common that no place lies across two of them.
std::optional<TextSpan> FindIn(const TextSource& text, TextSpan span, std::u16string_view what,
                               FindOptions options, bool backward) {
    if (what.empty() || what.size() > searchPiece / 2) return std::nullopt;
    const TextSearch search(what, options);
    const auto length = static_cast<TextPos>(what.size());
    for (int i = 0; i < maxPieces && span.end - span.start >= length; ++i) {
        TextSpan piece = span;
        if (piece.end - piece.start > searchPiece)
            (backward ? piece.start : piece.end) =
                backward ? piece.end - searchPiece : piece.start + searchPiece;
        const std::u16string units = text.Range(piece.start, piece.end);
        const std::size_t at = backward ? LastIn(search, units) : search.FindIn(units, 0);
        if (at != std::u16string_view::npos) {
            const TextPos start = piece.start + static_cast<TextPos>(at);
            return TextSpan{start, start + length};
        }
        if (piece.start == span.start && piece.end == span.end) break;
        (backward ? span.end : span.start) =
            backward ? piece.start + length - 1 : piece.end - length + 1;
    }
    return std::nullopt;
}
