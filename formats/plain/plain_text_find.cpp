// Finding in a plain text that is not in memory.
#include "common/find_text.h"
#include "formats/plain/plain_text_source.h"

#include <algorithm>

TextPos PlainTextSource::FindWhile(std::u16string_view what, TextPos start, FindOptions options,
                                   const std::function<bool()>& shouldContinue) const {
    constexpr std::uint64_t bytesPerQuestion = 1 << 20;
    start = std::clamp(start, 0, Length());
    if (what.empty() || what.size() > static_cast<std::size_t>(Length() - start)) return notFound;
    const TextSearch search(what, options);
    const auto length = static_cast<TextPos>(what.size());
    std::uint64_t nextQuestion = 0;
    for (std::size_t piece = PieceWith(start); piece + 1 < marks_.size(); ++piece) {
        if (marks_[piece].byte >= nextQuestion) {
            if (!shouldContinue()) return findGivenUp;
            nextQuestion = marks_[piece].byte + bytesPerQuestion;
        }
        if (const TextPos found = FindIn(piece, search, start, length); found >= 0) return found;
    }
    return notFound;
}

// The first match that begins in the piece. It may end after it, and whether it is a whole word
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
