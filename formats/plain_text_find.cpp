// Finding in a plain text that is not in memory.
#include "common/find_text.h"
#include "formats/plain_text_source.h"

#include <algorithm>

namespace {
constexpr std::size_t mostBytesOfUnit = 4;

bool KeepsAscii(TextEncoding encoding) {
    return encoding == TextEncoding::Utf8 || encoding == TextEncoding::CodePage;
}
} // namespace

// A match that begins in a piece may end behind it, and whether it is a whole word shows one unit
// further. Bytes are looked through first: in most pieces nothing needs to be decoded.
TextPos PlainTextSource::Find(std::u16string_view what, TextPos start, FindOptions options) const {
    start = std::clamp(start, 0, Length());
    if (what.empty() || what.size() > static_cast<std::size_t>(Length() - start)) return -1;
    const auto length = static_cast<TextPos>(what.size());
    const TextSearch search(what, options);
    AsciiSearch sieve(KeepsAscii(form_.encoding) ? what : std::u16string_view(), options);
    std::string buffer;
    if (!sieve.IsEmpty()) sieve.LearnFrom(BytesFrom(PieceWith(start), 0, buffer));
    for (std::size_t piece = PieceWith(start); piece + 1 < marks_.size(); ++piece) {
        const std::size_t reach = mostBytesOfUnit * what.size();
        if (!sieve.IsEmpty() && !sieve.IsIn(BytesFrom(piece, reach, buffer))) continue;
        const TextPos begin = std::max(start, marks_[piece].position);
        const TextPos from = std::max(begin - 1, 0), end = marks_[piece + 1].position;
        const std::u16string text = Range(from, end + std::min(length, Length() - end));
        const std::size_t at = search.FindIn(text, static_cast<std::size_t>(begin - from));
        const TextPos found = from + static_cast<TextPos>(at);
        if (at != std::u16string::npos && found < end) return found;
    }
    return -1;
}

// The bytes of a piece and as many behind it; they are in `buffer`.
std::string_view PlainTextSource::BytesFrom(std::size_t piece, std::size_t behind,
                                            std::string& buffer) const {
    const std::uint64_t from = marks_[piece].byte;
    const std::uint64_t end = std::min(marks_[piece + 1].byte + behind, marks_.back().byte);
    const auto count = static_cast<std::size_t>(end - from);
    if (buffer.size() < count) buffer.resize(count);
    return std::string_view(buffer.data(), file_->ReadAt(from, buffer.data(), count));
}
