#include "platform/qt/html_view/undeclared_page.h"

#include "common/file_limits.h"
#include "common/utf.h"
#include "formats/codepages/code_pages.h"
#include "formats/html/html_decode.h"
#include "platform/posix/posix_files.h"
#include "view/html/loaded_page.h"

namespace {
// The letters as bytes of ISO 8859-8, all else as character references.
std::string InHebrewPage(std::u16string_view text) {
    constexpr char16_t firstLetter = 0x5D0, lastLetter = 0x5EA;
    constexpr int firstByte = 0xE0;
    std::string bytes;
    for (const char16_t character : text) {
        if (character < 0x80)
            bytes += static_cast<char>(character);
        else if (character >= firstLetter && character <= lastLetter)
            bytes += static_cast<char>(firstByte + (character - firstLetter));
        else
            bytes += "&#" + std::to_string(static_cast<unsigned>(character)) + ";";
    }
    return bytes;
}
} // namespace

std::optional<UndeclaredPage> ReadUndeclaredPage(const std::string& path, int systemCodePage) {
    const PosixFiles files;
    const std::u16string name = Utf8ToUtf16(path, u'?');
    std::string bytes;
    // Most pages declare theirs, and need not be read twice.
    if (files.ReadStart(name, maxHtmlPrescan, bytes) != ReadStatus::Ok || SaysHtmlCharset(bytes))
        return std::nullopt;
    if (files.Read(name, maxFileInMemory, bytes) != ReadStatus::Ok) return std::nullopt;
    std::optional<DecodedHtml> page = DecodeUndeclaredHtml(bytes, 0, systemCodePage);
    if (!page) return std::nullopt;
    const bool isVisual = IsVisualOrder(page->codePage);
    bytes = {};
    const std::string charset = HtmlCharsetName(page->codePage);
    if (isVisual) return UndeclaredPage{InHebrewPage(page->text), charset, charset};
    return UndeclaredPage{Utf16ToUtf8(page->text), "UTF-8", charset};
}
