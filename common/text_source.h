// A text that a view shows without having it as a whole: what a large book is handed over as.
#pragma once

#include "common/geometry.h"

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>

struct FindOptions {
    bool wholeWord = false, matchCase = false;
};

// What a search returns when nothing is found, and when it was stopped.
constexpr TextPos notFound = -1, findGivenUp = -2;

// A stretch of a text, as long as the source keeps at hand.
struct TextPiece {
    TextPos start = 0;
    std::u16string_view units;

    TextPos End() const { return start + static_cast<TextPos>(units.size()); }
};

// Every paragraph break is one u'\n'. The text stays the same as long as the source lives.
class TextSource {
  public:
    virtual ~TextSource() = default;

    virtual TextPos Length() const = 0;
    // The piece with the character at `position`, which is in the text. Its units may be gone after
    // the next call of any function.
    virtual TextPiece PieceAt(TextPos position) const = 0;
    // The first place of `what` that begins at or after `start`. A long search asks now and then
    // whether it is to go on; the source may be used meanwhile, but not for another search.
    virtual TextPos FindWhile(std::u16string_view what, TextPos start, FindOptions,
                              const std::function<bool()>& shouldContinue) const = 0;
    TextPos Find(std::u16string_view what, TextPos start, FindOptions options) const {
        return FindWhile(what, start, options, [] { return true; });
    }

    char16_t UnitAt(TextPos position) const;
    std::u16string Range(TextPos start, TextPos end) const; // each moved into the text
    // The first and the last break at or after `from` and before `to`, each moved into the text; -1
    // when there is none.
    TextPos FirstBreak(TextPos from, TextPos to) const;
    TextPos LastBreak(TextPos from, TextPos to) const;
};

inline char16_t TextSource::UnitAt(TextPos position) const {
    const TextPiece piece = PieceAt(position);
    return piece.units[static_cast<std::size_t>(position - piece.start)];
}

inline std::u16string TextSource::Range(TextPos start, TextPos end) const {
    start = std::max(start, 0);
    end = std::min(end, Length());
    std::u16string range;
    if (start >= end) return range;
    range.reserve(static_cast<std::size_t>(end - start));
    while (start < end) {
        const TextPiece piece = PieceAt(start);
        const TextPos to = std::min(end, piece.End());
        range += piece.units.substr(static_cast<std::size_t>(start - piece.start),
                                    static_cast<std::size_t>(to - start));
        start = to;
    }
    return range;
}

inline TextPos TextSource::FirstBreak(TextPos from, TextPos to) const {
    to = std::min(to, Length());
    for (from = std::max(from, 0); from < to;) {
        const TextPiece piece = PieceAt(from);
        const TextPos end = std::min(to, piece.End());
        const std::size_t at = piece.units.substr(0, static_cast<std::size_t>(end - piece.start))
                                   .find(u'\n', static_cast<std::size_t>(from - piece.start));
        if (at != std::u16string_view::npos) return piece.start + static_cast<TextPos>(at);
        from = end;
    }
    return -1;
}

inline TextPos TextSource::LastBreak(TextPos from, TextPos to) const {
    from = std::max(from, 0);
    for (to = std::min(to, Length()); from < to;) {
        const TextPiece piece = PieceAt(to - 1);
        const TextPos start = std::max(from, piece.start);
        const std::size_t at = piece.units
                                   .substr(static_cast<std::size_t>(start - piece.start),
                                           static_cast<std::size_t>(to - start))
                                   .rfind(u'\n');
        if (at != std::u16string_view::npos) return start + static_cast<TextPos>(at);
        to = start;
    }
    return -1;
}
