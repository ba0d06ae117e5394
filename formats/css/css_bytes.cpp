// The encoding of a style sheet (css-syntax-3, 3.2).
#include "formats/css/css_page_sheets.h"

#include "common/utf.h"
#include "common/utf_wide.h"
#include "formats/codepages/code_pages.h"
#include "formats/html/html_labels.h"

namespace {

// Of `@charset "name";` in exactly this form at the start; 0 for none.
int DeclaredCodePage(std::string_view bytes) {
    constexpr std::string_view start = "@charset \"";
    constexpr std::size_t maxName = 64;
    if (!bytes.starts_with(start)) return 0;
    bytes.remove_prefix(start.size());
    const std::size_t end = bytes.find('"');
    if (end > maxName || bytes.substr(end, 2) != "\";") return 0;
    return HtmlLabelCodePage(bytes.substr(0, end));
}

} // namespace

std::u16string DecodeCss(std::string_view bytes, int pageCodePage) {
    if (bytes.starts_with("\xEF\xBB\xBF")) return Utf8ToUtf16(bytes.substr(3));
    if (bytes.starts_with("\xFE\xFF")) return DecodeUtf16(bytes.substr(2), ByteOrder::BigEndian);
    if (bytes.starts_with("\xFF\xFE")) return DecodeUtf16(bytes.substr(2), ByteOrder::LittleEndian);
    int codePage = DeclaredCodePage(bytes);
    if (codePage == 0) codePage = pageCodePage;
    if (codePage == utf8Page || !HasCodePage(codePage)) return Utf8ToUtf16(bytes);
    std::u16string text;
    DecodeCodePage(codePage, bytes, text);
    return text;
}
