#include "platform/qt/html_view/undeclared_page.h"

#include "common/file_limits.h"
#include "common/utf.h"
#include "formats/codepages/code_pages.h"
#include "formats/html/html_decode.h"
#include "platform/posix/posix_files.h"
#include "view/html/loaded_page.h"

std::optional<UndeclaredPage> ReadUndeclaredPage(const std::string& path, int systemCodePage) {
    const PosixFiles files;
    const std::u16string name = Utf8ToUtf16(path, u'?');
    std::string bytes;
    // Most pages declare theirs, and need not be read twice.
    if (files.ReadStart(name, maxHtmlPrescan, bytes) != ReadStatus::Ok || SaysHtmlCharset(bytes))
        return std::nullopt;
    if (files.Read(name, maxFileInMemory, bytes) != ReadStatus::Ok) return std::nullopt;
    std::optional<DecodedHtml> page = DecodeUndeclaredHtml(bytes, 0, systemCodePage);
    // Hebrew in visual order is recognised by the engine, too, which cannot lay it out in UTF-8. It
    // has no charset of DOS.
    const bool visual = page && IsVisualOrder(page->codePage) && page->codePage != visualDosPage;
    if (!page || visual) return std::nullopt;
    bytes = {};
    return UndeclaredPage{Utf16ToUtf8(page->text), HtmlCharsetName(page->codePage)};
}
