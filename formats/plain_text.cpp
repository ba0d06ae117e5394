#include "formats/plain_text.h"

#include "common/utf.h"
#include "formats/code_pages.h"
#include "formats/plain_text_guess.h"
#include "formats/plain_text_wide.h"

#include <algorithm>
#include <iterator>
#include <optional>

namespace {

constexpr int cyrillicPage = 1251;
constexpr int koi8Page = 20866;

struct ByteOrderMark {
    std::string_view bytes;
    TextEncoding encoding;
};

using namespace std::string_view_literals;

// UTF-32 before UTF-16, whose mark begins the same.
constexpr ByteOrderMark byteOrderMarks[] = {
    {"\xEF\xBB\xBF"sv, TextEncoding::Utf8},
    {"\xFF\xFE\0\0"sv, TextEncoding::Utf32LittleEndian},
    {"\0\0\xFE\xFF"sv, TextEncoding::Utf32BigEndian},
    {"\xFF\xFE"sv, TextEncoding::Utf16LittleEndian},
    {"\xFE\xFF"sv, TextEncoding::Utf16BigEndian},
};

// The encoding that the bytes themselves show. Takes a byte-order mark off.
std::optional<TextEncoding> EncodingOf(std::string_view& bytes) {
    for (const ByteOrderMark& mark : byteOrderMarks) {
        if (!bytes.starts_with(mark.bytes)) continue;
        bytes.remove_prefix(mark.bytes.size());
        return mark.encoding;
    }
    if (const std::optional<ByteOrder> order = GuessUtf16(bytes))
        return *order == ByteOrder::Little ? TextEncoding::Utf16LittleEndian
                                           : TextEncoding::Utf16BigEndian;
    if (LooksLikeUtf8(bytes)) return TextEncoding::Utf8;
    return std::nullopt;
}

std::u16string DecodeUnicode(TextEncoding encoding, std::string_view bytes) {
    switch (encoding) {
    case TextEncoding::Utf16LittleEndian: return DecodeUtf16(bytes, ByteOrder::Little);
    case TextEncoding::Utf16BigEndian: return DecodeUtf16(bytes, ByteOrder::Big);
    case TextEncoding::Utf32LittleEndian: return DecodeUtf32(bytes, ByteOrder::Little);
    case TextEncoding::Utf32BigEndian: return DecodeUtf32(bytes, ByteOrder::Big);
    default: return Utf8ToUtf16(bytes);
    }
}

} // namespace

DecodedText DecodePlainText(std::string_view bytes, int bookCodePage, int systemCodePage) {
    DecodedText decoded;
    if (const std::optional<TextEncoding> encoding = EncodingOf(bytes)) {
        decoded.encoding = *encoding;
        decoded.text = DecodeUnicode(*encoding, bytes);
    } else {
        decoded.encoding = TextEncoding::CodePage;
        decoded.codePage = bookCodePage != 0 ? bookCodePage : systemCodePage;
        if (decoded.codePage == cyrillicPage && LooksLikeKoi8(bytes)) decoded.codePage = koi8Page;
        decoded.text.reserve(bytes.size());
        DecodeCodePage(decoded.codePage, bytes, decoded.text);
    }
    // A NUL needs a zero byte, and those are found sooner than the NUL. Wide text is full of them.
    if (bytes.find('\0') != bytes.npos)
        std::replace(decoded.text.begin(), decoded.text.end(), u'\0', u'\uFFFD');
    return decoded;
}
