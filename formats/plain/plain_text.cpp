#include "formats/plain/plain_text.h"

#include "common/utf.h"
#include "common/utf_wide.h"
#include "formats/codepages/charset_guess.h"
#include "formats/codepages/code_pages.h"
#include "formats/codepages/escaped_text.h"
#include "formats/plain/plain_text_guess.h"
#include "formats/plain/visual_lines.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace {

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

std::u16string DecodeEncoded(const PlainTextForm& form, std::string_view bytes) {
    switch (form.encoding) {
    case TextEncoding::Utf8: return Utf8ToUtf16(bytes);
    case TextEncoding::Utf16LittleEndian: return DecodeUtf16(bytes, ByteOrder::LittleEndian);
    case TextEncoding::Utf16BigEndian: return DecodeUtf16(bytes, ByteOrder::BigEndian);
    case TextEncoding::Utf32LittleEndian: return DecodeUtf32(bytes, ByteOrder::LittleEndian);
    case TextEncoding::Utf32BigEndian: return DecodeUtf32(bytes, ByteOrder::BigEndian);
    case TextEncoding::CodePage: break;
    }
    std::u16string text;
    text.reserve(bytes.size());
    DecodeCodePage(form.codePage, bytes, text);
    return text;
}

} // namespace

std::optional<PlainTextForm> MarkedForm(std::string_view start) {
    for (const ByteOrderMark& mark : byteOrderMarks)
        if (start.starts_with(mark.bytes))
            return PlainTextForm{mark.encoding, 0, mark.bytes.size()};
    if (const std::optional<int> escaped = EscapedPage(start.substr(0, guessSample)))
        return PlainTextForm{TextEncoding::CodePage, *escaped};
    if (const std::optional<ByteOrder> order = GuessUtf32(start))
        return PlainTextForm{*order == ByteOrder::LittleEndian ? TextEncoding::Utf32LittleEndian
                                                               : TextEncoding::Utf32BigEndian};
    const std::optional<ByteOrder> order = GuessUtf16(start);
    if (!order) return std::nullopt;
    return PlainTextForm{*order == ByteOrder::LittleEndian ? TextEncoding::Utf16LittleEndian
                                                           : TextEncoding::Utf16BigEndian};
}

PlainTextForm CodePageForm(std::span<const std::string_view> samples, int bookCodePage,
                           int systemCodePage) {
    if (bookCodePage != 0)
        return {TextEncoding::CodePage, GuessCharsetOfScript(samples, bookCodePage)};
    if (LooksLikeDamagedUtf8(samples)) return {};
    return {TextEncoding::CodePage, GuessCharsets(samples, systemCodePage).front().page};
}

std::u16string DecodeAs(const PlainTextForm& form, std::string_view bytes) {
    std::u16string text = DecodeEncoded(form, bytes);
    // A NUL needs a zero byte, which are faster to search for. Wide text is full of them.
    if (bytes.find('\0') != bytes.npos) std::replace(text.begin(), text.end(), u'\0', u'\uFFFD');
    if (IsVisualOrder(form.codePage)) ReorderVisualLines(text);
    return text;
}

DecodedText DecodePlainText(std::string_view bytes, int bookCodePage, int systemCodePage) {
    std::optional<PlainTextForm> form = MarkedForm(bytes);
    if (!form && LooksLikeUtf8(bytes)) form = PlainTextForm();
    if (!form) {
        std::vector<std::string_view> samples;
        for (const SamplePlace& place : SamplePlaces(bytes.size(), ValidUtf8Length(bytes)))
            samples.push_back(bytes.substr(static_cast<std::size_t>(place.begin), place.length));
        form = CodePageForm(samples, bookCodePage, systemCodePage);
    }
    bytes.remove_prefix(form->markLength);
    return {DecodeAs(*form, bytes), form->encoding, form->codePage};
}
