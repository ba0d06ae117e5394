#include "platform/qt/base/file_url.h"

#include "common/hex_digits.h"

#include <algorithm>

namespace {
char ToLower(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character | 0x20) : character;
}

std::string ToLower(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), [](char c) { return ToLower(c); });
    return lower;
}

std::string DecodePercents(std::string_view text) {
    std::string bytes;
    const auto digit = [text](std::size_t at) {
        return at < text.size() ? HexDigitOf(static_cast<unsigned char>(text[at])) : -1;
    };
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool escaped = text[i] == '%' && digit(i + 1) >= 0 && digit(i + 2) >= 0;
        bytes += escaped ? static_cast<char>(digit(i + 1) * 16 + digit(i + 2)) : text[i];
        i += escaped ? 2 : 0;
    }
    return bytes;
}
} // namespace

std::optional<FileUrl> ParseFileUrl(std::string_view url) {
    constexpr std::string_view scheme = "file:";
    if (ToLower(url.substr(0, scheme.size())) != scheme) return std::nullopt;
    url.remove_prefix(scheme.size());
    FileUrl result;
    if (url.starts_with("//")) {
        const std::size_t path = std::min(url.find('/', 2), url.size());
        result.host = ToLower(url.substr(2, path - 2));
        url.remove_prefix(path);
    }
    result.path = DecodePercents(url);
    return result;
}

std::optional<std::string> LocalPathOf(std::string_view url) {
    const auto file = ParseFileUrl(url);
    const bool isLocal = file && (file->host.empty() || file->host == "localhost");
    if (!isLocal || !file->path.starts_with('/')) return std::nullopt;
    return file->path;
}
