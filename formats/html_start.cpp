#include "formats/html_start.h"

namespace {

bool IsLetter(char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

} // namespace

bool LooksLikeHtml(std::string_view bytes) {
    // The other bytes of byte order marks and of UTF-16.
    constexpr std::string_view skipped("\xEF\xBB\xBF\xFE\xFF\0 \t\r\n\v\f", 12);
    const std::size_t start = bytes.find_first_not_of(skipped);
    if (start == bytes.npos || bytes[start] != '<') return false;
    const std::size_t next = bytes.find_first_not_of('\0', start + 1);
    return next != bytes.npos &&
           (IsLetter(bytes[next]) || bytes[next] == '!' || bytes[next] == '?');
}
