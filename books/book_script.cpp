#include "books/book_script.h"

#include "common/text.h"
#include "formats/codepages/charset_guess.h"
#include "formats/codepages/charsets.h"
#include "formats/codepages/code_pages.h"

namespace {
constexpr std::u16string_view codePageKey = u"CodePage"; // 0: nothing was chosen

// The code page that a record's number alone asks for.
int CodePageOfNumber(const BookRecord& record, int ansiCodePage) {
    const int page = CharsetToCodePage(record.Number(Field::Charset));
    return page == ansiCodePage ? 0 : page;
}
} // namespace

ChosenCharset CharsetChosenFor(const BookSettings& settings, const BookRecord& record,
                               int ansiCodePage) {
    const std::u16string stored = settings.Read(codePageKey);
    const int page = WholeNumber(stored);
    if (!stored.empty() && (page == 0 || HasCodePage(page))) return {page, true};
    return {CodePageOfNumber(record, ansiCodePage), false};
}

void StoreChosenCodePage(const BookSettings& settings, int codePage) {
    settings.Write(codePageKey, NumberText(codePage));
}

void StoreNothingChosen(const BookSettings& settings, const BookRecord& record, int ansiCodePage) {
    const bool looksChosen = CodePageOfNumber(record, ansiCodePage) != 0;
    if (looksChosen && settings.Read(codePageKey).empty()) StoreChosenCodePage(settings, 0);
}

int ScriptCharset(int codePage, int present) {
    const int page = WindowsPageOfScript(codePage), presentPage = CharsetToCodePage(present);
    if (page == 0 || presentPage == page || presentPage == codePage) return present;
    return CodePageToCharset(page);
}

int FontCharsetOf(int codePage) {
    constexpr int oemCharset = 254;
    const int charset = CodePageToCharset(codePage);
    if (CharsetToCodePage(charset) == codePage) return charset;
    return CharsetToCodePage(oemCharset) == codePage ? oemCharset : ScriptCharset(codePage, -1);
}
