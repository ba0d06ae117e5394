#include "common/profile_encoding.h"

#include "common/utf.h"

#include <algorithm>

namespace {

constexpr std::size_t examinedBytes = 1024;

bool HasZeros(std::string_view bytes, std::size_t first, std::size_t wanted) {
    std::size_t zeros = 0;
    for (std::size_t i = first; i < bytes.size(); i += 2)
        zeros += bytes[i] == '\0';
    return zeros >= wanted;
}

} // namespace

std::optional<ByteOrder> Utf16OrderOf(std::string_view bytes) {
    if (bytes.starts_with("\xFF\xFE")) return ByteOrder::LittleEndian;
    if (bytes.starts_with("\xFE\xFF")) return ByteOrder::BigEndian;
    if (bytes.starts_with("\xEF\xBB\xBF")) return std::nullopt;
    const std::string_view start = bytes.substr(0, std::min(bytes.size(), examinedBytes) & ~1u);
    const std::size_t many = std::max<std::size_t>(start.size() / 4, 2); // half of the units
    const bool first = HasZeros(start, 0, 1), second = HasZeros(start, 1, 1);
    if (!first && second && HasZeros(start, 1, many)) return ByteOrder::LittleEndian;
    if (first && !second && HasZeros(start, 0, many)) return ByteOrder::BigEndian;
    return std::nullopt;
}

std::string Utf16BytesToUtf8(std::string_view bytes, ByteOrder order) {
    std::u16string text = DecodeUtf16(bytes.substr(0, bytes.size() & ~std::size_t{1}), order);
    std::ranges::replace(text, u'\0', u' '); // else the UTF-8 could be taken for UTF-16 again
    if (text.starts_with(u'\uFEFF')) text.erase(0, 1);
    return Utf16ToUtf8(text);
}

bool IsDamagedUtf8(std::string_view line) {
    std::ptrdiff_t sequences = 0, bad = 0;
    while (!line.empty()) {
        const std::string_view valid = line.substr(0, ValidUtf8Length(line));
        sequences += std::ranges::count_if(
            valid, [](char byte) { return static_cast<unsigned char>(byte) >= 0xC0; });
        line.remove_prefix(valid.size());
        if (line.empty()) break;
        ++bad;
        line.remove_prefix(1);
    }
    return sequences > bad;
}
