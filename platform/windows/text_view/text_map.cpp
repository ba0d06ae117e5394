#include "platform/windows/text_view/text_map.h"

#include <algorithm>
#include <limits>

namespace {
constexpr TextPos widestGap = 64;    // units of both sides together
constexpr std::size_t proof = 8;     // units that agree after a gap
constexpr int mostTries = 5'000'000; // in looking for gaps, of a few units each
constexpr TextPos endless = std::numeric_limits<TextPos>::max();

// Controls end cells with U+0007, or with a tab, and show a picture that they cannot read as a
// blank.
bool Same(char16_t book, char16_t control) {
    switch (book) {
    case u'\n': return control == u'\r' || control == u'\n';
    case u'\v': return control == u'\v' || control == u'\r' || control == u'\n';
    case u'\a': return control == u'\a' || control == u'\t';
    case u'\uFFFC': return control == u'\uFFFC' || control == u' ';
    default: return book == control;
    }
}

bool Agree(std::u16string_view book, std::u16string_view control) {
    const std::size_t size = std::min({proof, book.size(), control.size()});
    if (size == 0) return book.size() == control.size();
    return std::equal(book.begin(), book.begin() + size, control.begin(), Same);
}
} // namespace

// Of the shortest gaps the one that loses least of the book.
TextMap::Gap TextMap::FindGap(std::u16string_view book, std::u16string_view control, int& tries) {
    for (TextPos both = 1; both <= widestGap; ++both)
        for (TextPos lost = 0; lost <= both; ++lost) {
            const TextPos added = both - lost;
            ++tries;
            if (std::size_t(lost) > book.size() || std::size_t(added) > control.size()) continue;
            if (Agree(book.substr(lost), control.substr(added))) return {lost, added};
        }
    return {1, 1}; // another character in its place
}

TextMap::TextMap(std::u16string_view book, std::u16string_view control) {
    TextPos inBook = 0, inControl = 0;
    int tries = 0;
    for (;;) {
        const auto bookRest = book.substr(inBook), controlRest = control.substr(inControl);
        const auto ends = std::mismatch(bookRest.begin(), bookRest.end(), controlRest.begin(),
                                        controlRest.end(), Same);
        const auto length = static_cast<TextPos>(ends.first - bookRest.begin());
        const bool last =
            ends.first == bookRest.end() || ends.second == controlRest.end() || tries > mostTries;
        pieces_.push_back({inBook, inControl, last ? endless : length});
        if (last) return;
        const Gap gap = FindGap(bookRest.substr(length), controlRest.substr(length), tries);
        if (gap.book == gap.control) // replaced, the places stay
            pieces_.back().length += gap.book;
        inBook += length + gap.book;
        inControl += length + gap.control;
    }
}

TextPos TextMap::Map(const std::vector<Piece>& pieces, TextPos position, TextPos Piece::*from,
                     TextPos Piece::*to) {
    if (pieces.empty()) return position;
    auto next = std::upper_bound(pieces.begin(), pieces.end(), position,
                                 [from](TextPos at, const Piece& p) { return at < p.*from; });
    if (next == pieces.begin()) return pieces.front().*to;
    const Piece& piece = *(next - 1);
    const TextPos within = position - piece.*from;
    return within < piece.length || next == pieces.end() ? piece.*to + within : (*next).*to;
}

TextPos TextMap::ToControl(TextPos position) const {
    return Map(pieces_, position, &Piece::book, &Piece::control);
}

TextPos TextMap::ToBook(TextPos position) const {
    return Map(pieces_, position, &Piece::control, &Piece::book);
}
