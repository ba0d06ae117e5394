#include "formats/html/html_data_address.h"

#include "common/text.h"
#include "common/utf.h"
#include "formats/html/html_units.h"

#include <algorithm>

namespace {
constexpr std::u16string_view scheme = u"data:";
constexpr std::size_t unitsAtOnce = 64 * 1024;

// Of a base64 digit; -1 for another unit.
constexpr int DigitValue(char digit) {
    return digit >= 'A' && digit <= 'Z'   ? digit - 'A'
           : digit >= 'a' && digit <= 'z' ? digit - 'a' + 26
           : digit >= '0' && digit <= '9' ? digit - '0' + 52
           : digit == '+'                 ? 62
           : digit == '/'                 ? 63
                                          : -1;
}

// Takes bytes until it has enough of them.
class Base64 {
  public:
    void Add(char digit, std::string& bytes) {
        const int value = DigitValue(digit);
        if (value < 0) return;
        bits_ = bits_ << 6 | std::uint32_t(value);
        count_ += 6;
        if (count_ < 8) return;
        count_ -= 8;
        bytes += static_cast<char>(bits_ >> count_ & 0xFF);
    }

  private:
    std::uint32_t bits_ = 0;
    int count_ = 0;
};

// Units that are decoded together: none of them ends within "%41" or a surrogate pair.
std::u16string_view NextPart(std::u16string_view text) {
    if (text.size() <= unitsAtOnce) return text;
    std::size_t end = unitsAtOnce;
    for (std::size_t back = 1; back <= 2; ++back)
        if (text[end - back] == u'%') return text.substr(0, end - back);
    if (IsLowSurrogate(text[end])) --end;
    return text.substr(0, end);
}

// Its bytes, for each "%41" one.
std::string DecodePercents(std::u16string_view text) {
    std::string bytes = Utf16ToUtf8(text);
    std::size_t to = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto digit = [&](std::size_t at) {
            return at < bytes.size() ? HexDigitOf(static_cast<unsigned char>(bytes[at])) : -1;
        };
        const bool isEscape = bytes[i] == '%' && digit(i + 1) >= 0 && digit(i + 2) >= 0;
        bytes[to++] = isEscape ? static_cast<char>(digit(i + 1) * 16 + digit(i + 2)) : bytes[i];
        if (isEscape) i += 2;
    }
    bytes.resize(to);
    return bytes;
}
} // namespace

bool IsHtmlDataAddress(std::u16string_view url) {
    return EqualsAsciiLower(url.substr(0, scheme.size()), scheme);
}

std::string HtmlDataOf(std::u16string_view url, std::size_t count) {
    const std::size_t comma = IsHtmlDataAddress(url) ? url.find(u',') : url.npos;
    if (comma == url.npos) return {};
    const bool isBase64 = url.substr(0, comma).ends_with(u";base64");
    url.remove_prefix(comma + 1);
    std::string bytes;
    Base64 base64;
    while (!url.empty() && bytes.size() < count) {
        const std::u16string_view part = NextPart(url);
        url.remove_prefix(part.size());
        const std::string decoded = DecodePercents(part);
        if (!isBase64)
            bytes += decoded;
        else
            for (const char digit : decoded)
                base64.Add(digit, bytes);
    }
    bytes.resize(std::min(bytes.size(), count));
    return bytes;
}
