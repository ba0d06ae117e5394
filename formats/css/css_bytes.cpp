// The encoding of a style sheet (css-syntax-3, 3.2).
#include "formats/css/css_page_sheets.h"

#include "common/utf.h"
#include "formats/codepages/charsets.h"
#include "formats/codepages/code_pages.h"

namespace {

std::u16string FromUtf16(std::string_view bytes, bool bigEndian) {
    std::u16string text(bytes.size() / 2, u'\0');
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto first = static_cast<unsigned char>(bytes[2 * i]);
        const auto second = static_cast<unsigned char>(bytes[2 * i + 1]);
        text[i] = static_cast<char16_t>(bigEndian ? first << 8 | second : second << 8 | first);
    }
    return text;
}

// Of `@charset "name";` in exactly this form at the start; 0 for none.
int DeclaredCodePage(std::string_view bytes) {
    constexpr std::string_view start = "@charset \"";
    constexpr std::size_t longest = 64;
    if (!bytes.starts_with(start)) return 0;
    bytes.remove_prefix(start.size());
    const std::size_t end = bytes.find('"');
    if (end > longest || bytes.substr(end, 2) != "\";") return 0;
    const std::string_view name = bytes.substr(0, end);
    const std::string known = CharsetTableName(name);
    // A sheet in UTF-16 could not have said so in these bytes.
    if (known.starts_with("utf-")) return utf8Page;
    const int codePage = CharsetCodePage(known);
    return HasCodePage(codePage) ? codePage : 0;
}

} // namespace

std::u16string DecodeCss(std::string_view bytes, int pageCodePage) {
    if (bytes.starts_with("\xEF\xBB\xBF")) return Utf8ToUtf16(bytes.substr(3));
    if (bytes.starts_with("\xFE\xFF")) return FromUtf16(bytes.substr(2), true);
    if (bytes.starts_with("\xFF\xFE")) return FromUtf16(bytes.substr(2), false);
    int codePage = DeclaredCodePage(bytes);
    if (codePage == 0) codePage = pageCodePage;
    if (codePage == utf8Page || !HasCodePage(codePage)) return Utf8ToUtf16(bytes);
    std::u16string text;
    DecodeCodePage(codePage, bytes, text);
    return text;
}
