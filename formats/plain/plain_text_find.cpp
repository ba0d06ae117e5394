// Finding in a plain text that is not in memory.
#include "formats/plain/likely_places.h"
#include "formats/plain/plain_text_source.h"

#include <algorithm>

// Bytes are looked through first: most pieces need not be decoded.
TextPos PlainTextSource::FindWhile(std::u16string_view what, TextPos start, FindOptions options,
                                   const std::function<bool()>& goesOn) const {
    start = std::clamp(start, 0, Length());
    if (what.empty() || what.size() > static_cast<std::size_t>(Length() - start)) return notFound;
    EncodedSearch encoded(form_, what, options);
    if (encoded.IsHopeless()) return notFound;
    const TextSearch search(what, options);
    const auto length = static_cast<TextPos>(what.size());
    std::size_t piece = PieceWith(start);
    LikelyPlaces places(*file_, encoded, {marks_.front().byte, marks_.back().byte},
                        marks_[piece].byte, goesOn);
    while (const auto place = places.Next()) {
        const std::uint64_t reach = std::min(*place, std::uint64_t{encoded.Reach()});
        piece = std::max(piece, PieceWithByte(*place - reach));
        for (; marks_[piece].byte <= *place; ++piece)
            if (const TextPos found = FindIn(piece, search, start, length); found >= 0)
                return found;
        places.SkipTo(marks_[piece].byte);
    }
    return places.IsGivenUp() ? findGivenUp : notFound;
}

// The first match that begins in the piece. It may end behind it, and whether it is a whole word
// shows one unit further.
TextPos PlainTextSource::FindIn(std::size_t piece, const TextSearch& search, TextPos start,
                                TextPos length) const {
    const TextPos begin = std::max(start, marks_[piece].position);
    const TextPos from = std::max(begin - 1, 0), end = marks_[piece + 1].position;
    const std::u16string text = Range(from, end + std::min(length, Length() - end));
    const std::size_t at = search.FindIn(text, static_cast<std::size_t>(begin - from));
    const TextPos found = from + static_cast<TextPos>(at);
    return at != std::u16string::npos && found < end ? found : notFound;
}
