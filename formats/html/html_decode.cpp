#include "formats/html/html_decode.h"

#include "common/decode_pieces.h"
#include "common/utf.h"
#include "common/utf_wide.h"
#include "formats/codepages/code_pages.h"
#include "formats/codepages/escaped_text.h"
#include "formats/html/html_declaration.h"
#include "formats/plain/plain_text.h"
#include "formats/plain/plain_text_guess.h"

#include <optional>
#include <vector>

namespace {

constexpr int utf16Page = 1200, utf16BigEndianPage = 1201; // as Windows numbers them

struct Mark {
    int page;
    std::size_t length; // in bytes; the start of an XML declaration is none, but says as much
};

// A declaration in ASCII is no use in UTF-16; UTF-32 is none of the Encoding Standard's.
std::optional<Mark> MarkOf(std::string_view bytes) {
    using namespace std::string_view_literals;
    if (bytes.starts_with("\xEF\xBB\xBF")) return Mark{utf8Page, 3};
    if (bytes.starts_with("\xFF\xFE")) return Mark{utf16Page, 2};
    if (bytes.starts_with("\xFE\xFF")) return Mark{utf16BigEndianPage, 2};
    if (bytes.starts_with("<\0?\0x\0"sv)) return Mark{utf16Page, 0};
    if (bytes.starts_with("\0<\0?\0x"sv)) return Mark{utf16BigEndianPage, 0};
    return std::nullopt;
}

std::optional<DecodedHtml> DecodeMarked(std::string_view bytes) {
    const std::optional<Mark> mark = MarkOf(bytes);
    if (!mark) return std::nullopt;
    bytes.remove_prefix(mark->length);
    if (mark->page == utf8Page) return DecodedHtml{Utf8ToUtf16(bytes), utf8Page};
    const ByteOrder order =
        mark->page == utf16Page ? ByteOrder::LittleEndian : ByteOrder::BigEndian;
    return DecodedHtml{DecodeUtf16(bytes, order), mark->page};
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

bool SaysHtmlCharset(std::string_view bytes) {
    return MarkOf(bytes) || DeclaredHtmlCodePage(bytes) != 0;
}

std::optional<DecodedHtml> DecodeUndeclaredHtml(std::string_view bytes, int bookCodePage,
                                                int systemCodePage) {
    if (const std::optional<ByteOrder> order = GuessUtf16(bytes))
        return DecodedHtml{DecodeUtf16(bytes, *order),
                           *order == ByteOrder::LittleEndian ? utf16Page : utf16BigEndianPage};
    if (const std::optional<int> escaped = EscapedPage(bytes.substr(0, guessSample)))
        return DecodePage(*escaped, bytes);
    if (IsAscii(bytes)) return std::nullopt;
    if (LooksLikeUtf8(bytes)) return DecodePage(utf8Page, bytes);
    return DecodePage(GuessedPage(bytes, bookCodePage, systemCodePage), bytes);
}

DecodedHtml DecodeHtml(std::string_view bytes, int bookCodePage, int systemCodePage) {
    if (std::optional<DecodedHtml> marked = DecodeMarked(bytes)) return std::move(*marked);
    if (const int page = DeclaredHtmlCodePage(bytes)) return DecodePage(page, bytes);
    if (auto undeclared = DecodeUndeclaredHtml(bytes, bookCodePage, systemCodePage))
        return std::move(*undeclared);
    // Letters of ASCII alone say nothing: browsers name such a page by the system's charset.
    return {Utf8ToUtf16(bytes), bookCodePage != 0 ? bookCodePage : systemCodePage};
}
