#include "books/book_script.h"

#include "app/main_form.h"
#include "books/book_record.h"
#include "books/charsets.h"
#include "books/history_list.h"
#include "common/text.h"
#include "formats/code_pages.h"
#include "formats/codepages/charset_guess.h"

namespace {
constexpr std::u16string_view codePageKey = u"CodePage"; // 0: nothing was chosen

std::u16string StoredCodePage(const MainForm& form, const std::u16string& recordKey) {
    return IniReadString(*form.dataFile, BookSection(form, recordKey), std::u16string(codePageKey));
}

// The code page that a record's number alone asks for.
int CodePageOfNumber(const MainForm& form, const BookRecord& record) {
    const int page = CharsetToCodePage(record.Number(Field::Charset));
    return page == form.ports.locale->AnsiCodePage() ? 0 : page;
}
} // namespace

int ChosenCodePage(const MainForm& form, const BookRecord& record) {
    const std::u16string stored = StoredCodePage(form, record[Field::Path]);
    const int page = WholeNumber(stored);
    if (!stored.empty() && (page == 0 || HasCodePage(page))) return page;
    return CodePageOfNumber(form, record);
}

void ChooseCodePage(MainForm& form, int codePage) {
    form.chosenCodePage = codePage;
    const std::u16string key(RecordKey(form.menu.mFileList[0].tag));
    IniWriteString(*form.dataFile, BookSection(form, key), std::u16string(codePageKey),
                   NumberText(codePage));
}

void KeepNothingChosen(MainForm& form, const BookRecord& record) {
    const std::u16string& key = record[Field::Path];
    if (CodePageOfNumber(form, record) == 0 || !StoredCodePage(form, key).empty()) return;
    IniWriteString(*form.dataFile, BookSection(form, key), std::u16string(codePageKey), u"0");
}

void KeepGuessedScript(MainForm& form) {
    if (form.chosenCodePage != 0 || form.shownCodePage == 0) return;
    MenuItem& item = form.menu.mFileList[0];
    BookRecord record = BookRecord::Parse(item.tag);
    if (record.Number(Field::Charset) == form.viewFont.charset) return;
    record[Field::Charset] = NumberText(form.viewFont.charset);
    item.tag = record.ToText();
    IniBatch oneWrite(*form.dataFile);
    KeepNothingChosen(form, record);
    SaveHistoryItem(form, 0);
}

int ScriptCharset(int codePage, int present) {
    const int page = WindowsPageOfScript(codePage);
    if (page == 0 || CharsetToCodePage(present) == page) return present;
    return CodePageToCharset(page);
}
