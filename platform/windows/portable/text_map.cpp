#include "platform/windows/portable/text_map.h"

#include <algorithm>
#include <limits>

namespace {
constexpr TextPos maxGap = 64;      // units, both sides together
constexpr int maxTries = 5'000'000; // comparisons of a few units
constexpr TextPos unbounded = std::numeric_limits<TextPos>::max();

// Versions differ: cells end in U+0007 or a tab, an unreadable picture becomes a space.
bool Matches(char16_t book, char16_t control) {
    switch (book) {
    case u'\n': return control == u'\r' || control == u'\n';
    case u'\v': return control == u'\v' || control == u'\r' || control == u'\n' || control == u' ';
    case u'\a': return control == u'\a' || control == u'\t';
    case u'\uFFFC': return control == u'\uFFFC' || control == u' ';
    default: return book == control;
    }
}

// What controls add around rows and cells.
bool IsMark(char16_t control) {
    return std::u16string_view(u"\r\n\a\t\uFFF9\uFFFB").find(control) != std::u16string_view::npos;
}

bool IsOftenOmitted(char16_t book) { // a picture, a soft hyphen
    return book == u'\uFFFC' || book == u'\u00AD';
}

// Whether the texts match for `length` units, or to the end of one.
bool RestMatches(std::u16string_view book, std::u16string_view control, std::size_t length) {
    const std::size_t size = std::min({length, book.size(), control.size()});
    if (size == 0) return book.size() == control.size();
    return std::equal(book.begin(), book.begin() + size, control.begin(), Matches);
}

char16_t ControlUnit(char16_t unit) {
    switch (unit) {
    case u'\n': return u'\r';
    case u'\f':
    case u'\u2028':
    case u'\u2029': return u'\v'; // a line end inside a paragraph
    case u'\0':
    case u'\a':     // the end of a cell
    case u'\uFFF9': // the marks around a row
    case u'\uFFFA':
    case u'\uFFFB': return u' ';
    case u'\uFFFC': return u'\uFFFD';                                    // a picture
    default: return unit >= 0xFDD0 && unit <= 0xFDEF ? u'\uFFFD' : unit; // marks of formulas
    }
}
} // namespace

// The shortest gap: of marks and often omitted characters if possible, else of any.
TextMap::Gap TextMap::FindGap(std::u16string_view book, std::u16string_view control, int& tries) {
    constexpr std::size_t usualMatch = 2, safeMatch = 8;
    const auto marks = static_cast<TextPos>(
        std::find_if_not(control.begin(), control.end(), IsMark) - control.begin());
    const auto omitted = static_cast<TextPos>(
        std::find_if_not(book.begin(), book.end(), IsOftenOmitted) - book.begin());
    for (const bool any : {false, true})
        for (TextPos both = 1; both <= maxGap; ++both)
            for (TextPos lost = 0; lost <= both; ++lost) {
                const TextPos added = both - lost;
                ++tries;
                if (!any && (lost > omitted || added > marks)) continue;
                if (std::size_t(lost) > book.size() || std::size_t(added) > control.size())
                    continue;
                if (RestMatches(book.substr(lost), control.substr(added),
                                any ? safeMatch : usualMatch))
                    return {lost, added};
            }
    return {1, 1}; // another character in its place
}

TextMap::TextMap(std::u16string_view book, std::u16string_view control) {
    TextPos inBook = 0, inControl = 0;
    int tries = 0;
    for (;;) {
        const auto bookRest = book.substr(inBook), controlRest = control.substr(inControl);
        const auto ends = std::mismatch(bookRest.begin(), bookRest.end(), controlRest.begin(),
                                        controlRest.end(), Matches);
        const auto length = static_cast<TextPos>(ends.first - bookRest.begin());
        const bool last =
            ends.first == bookRest.end() || ends.second == controlRest.end() || tries > maxTries;
        pieces_.push_back({inBook, inControl, last ? unbounded : length});
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

std::u16string ToControlText(std::u16string_view text) {
    std::u16string result(text.size(), u'\0');
    std::transform(text.begin(), text.end(), result.begin(), ControlUnit);
    return result;
}
