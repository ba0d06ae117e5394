#include "common/utf_wide.h"

#include "common/decode_pieces.h"
#include "common/utf.h"

#include <algorithm>
#include <cstddef>

namespace {

constexpr char16_t replacement = u'\uFFFD';

template <int size>
char32_t ReadUnit(const char* bytes, ByteOrder order) {
    char32_t value = 0;
    for (int i = 0; i < size; ++i) {
        const int from = order == ByteOrder::BigEndian ? i : size - 1 - i;
        value = value << 8 | static_cast<unsigned char>(bytes[from]);
    }
    return value;
}

void ReplaceLoneSurrogates(std::u16string& text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!IsSurrogate(text[i])) continue;
        if (IsHighSurrogate(text[i]) && i + 1 < text.size() && IsLowSurrogate(text[i + 1]))
            ++i;
        else
            text[i] = replacement;
    }
}

} // namespace

std::u16string DecodeUtf16(std::string_view bytes, ByteOrder order) {
    const std::size_t count = bytes.size() / 2;
    std::u16string text((bytes.size() + 1) / 2,
                        replacement); // of which an odd byte at the end keeps one
    for (std::size_t i = 0; i < count; ++i)
        text[i] = static_cast<char16_t>(ReadUnit<2>(bytes.data() + 2 * i, order));
    ReplaceLoneSurrogates(text);
    return text;
}

std::u16string DecodeUtf32(std::string_view bytes, ByteOrder order) {
    std::u16string text;
    text.reserve((bytes.size() + 3) / 4);
    while (bytes.size() >= 4) {
        char16_t piece[2 * 2048];
        char16_t* out = piece;
        const std::size_t count = std::min<std::size_t>(2048, bytes.size() / 4);
        for (std::size_t i = 0; i < count; ++i) {
            const char32_t value = ReadUnit<4>(bytes.data() + 4 * i, order);
            out = PutUtf16(IsSurrogate(value) || value > 0x10FFFF ? replacement : value, out);
        }
        text.append(piece, out);
        bytes.remove_prefix(4 * count);
    }
    if (!bytes.empty()) text += replacement;
    return text;
}
