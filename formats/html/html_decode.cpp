#include "formats/html/html_decode.h"

#include "common/utf.h"
#include "common/utf_wide.h"
#include "formats/codepages/code_pages.h"
#include "formats/html/html_declaration.h"
#include "formats/plain/plain_text.h"
#include "formats/plain/plain_text_guess.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace {

constexpr int utf16Page = 1200, utf16BigEndianPage = 1201; // as Windows numbers them

// A declaration in ASCII is no use in UTF-16; UTF-32 is none of the Encoding Standard's.
std::optional<DecodedHtml> DecodeMarked(std::string_view bytes) {
    using namespace std::string_view_literals;
    if (bytes.starts_with("\xEF\xBB\xBF"))
        return DecodedHtml{Utf8ToUtf16(bytes.substr(3)), utf8Page};
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("<\0?\0x\0"sv))
        return DecodedHtml{
            DecodeUtf16(bytes.substr(bytes[0] == '<' ? 0 : 2), ByteOrder::LittleEndian), utf16Page};
    if (bytes.starts_with("\xFE\xFF") || bytes.starts_with("\0<\0?\0x"sv))
        return DecodedHtml{DecodeUtf16(bytes.substr(bytes[1] == '<' ? 0 : 2), ByteOrder::BigEndian),
                           utf16BigEndianPage};
    return std::nullopt;
}

DecodedHtml DecodePage(int page, std::string_view bytes) {
    if (page == utf8Page) return {Utf8ToUtf16(bytes), page};
    DecodedHtml decoded{{}, page};
    decoded.text.reserve(bytes.size());
    DecodeCodePage(page, bytes, decoded.text);
    return decoded;
}

int GuessedPage(std::string_view bytes, int bookCodePage, int systemCodePage) {
    std::vector<std::string_view> samples;
    for (const SamplePlace& place : SamplePlaces(bytes.size(), ValidUtf8Length(bytes)))
        samples.push_back(bytes.substr(static_cast<std::size_t>(place.begin), place.length));
    const PlainTextForm form = CodePageForm(samples, bookCodePage, systemCodePage);
    return form.encoding == TextEncoding::CodePage ? form.codePage : utf8Page;
}

} // namespace

DecodedHtml DecodeHtml(std::string_view bytes, int bookCodePage, int systemCodePage) {
    if (std::optional<DecodedHtml> marked = DecodeMarked(bytes)) return std::move(*marked);
    if (const int page = DeclaredHtmlCodePage(bytes)) return DecodePage(page, bytes);
    if (const std::optional<ByteOrder> order = GuessUtf16(bytes))
        return {DecodeUtf16(bytes, *order),
                *order == ByteOrder::LittleEndian ? utf16Page : utf16BigEndianPage};
    // Letters of ASCII alone say nothing: browsers name such a page by the system's charset.
    const bool isAscii = std::ranges::all_of(bytes, [](char byte) { return byte >= 0; });
    if (isAscii) return {Utf8ToUtf16(bytes), bookCodePage != 0 ? bookCodePage : systemCodePage};
    if (LooksLikeUtf8(bytes)) return DecodePage(utf8Page, bytes);
    return DecodePage(GuessedPage(bytes, bookCodePage, systemCodePage), bytes);
}
