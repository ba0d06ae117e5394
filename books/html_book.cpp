#include "books/html_book.h"

#include "common/char_refs.h"
#include "common/text.h"
#include "formats/codepages/charsets.h"

namespace {
std::u16string PageCharset(const HtmlView& view) {
    return NumberText(CodePageToCharset(CharsetCodePage(CharsetTableName(view.Charset()))));
}

// Without what separates the fields of a record.
std::u16string StoredTitle(const std::u16string& title) {
    constexpr std::size_t maxTitleLength = 1000; // units; more than any caption shows
    const auto decoded =
        OneLine(DecodeCharRefs(std::u16string_view(title).substr(0, maxTitleLength)));
    return Replace(TrimBlanks(decoded), u"=", u"&#61;");
}
} // namespace

void StoreDocument(BookRecord& record, const HtmlView& view) {
    record[Field::Charset] = PageCharset(view);
    record[Field::Title] = StoredTitle(view.Title());
}

void StorePagePlace(BookRecord& record, const HtmlView& view, const PageTop& top) {
    StorePageSize(record, view, view.ZoomSteps());
    if (top.offset >= 0) record[Field::LastPos] = NumberText(top.offset);
}

void StorePageSize(BookRecord& record, const HtmlView& view, int zoomStep) {
    record[Field::FontSize] = NumberText(zoomStep);
    record[Field::Charset] = PageCharset(view);
}
