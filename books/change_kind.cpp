#include "books/change_kind.h"

#include "app/main_form.h"
#include "books/book_record.h"
#include "books/history_list.h"
#include "books/save_state.h"
#include "common/text.h"

#include <array>

namespace {
constexpr std::u16string_view asideKey = u"OtherView";

// What each of the two views counts in units of its own; and the title, which a page brings along.
constexpr std::array viewFields = {Field::FontSize, Field::Charset, Field::LastPos, Field::Marks,
                                   Field::Title};

std::u16string StateOf(const BookRecord& record) {
    std::vector<std::u16string> state;
    for (const Field field : viewFields)
        state.push_back(record[field]);
    return Join(state, u"=");
}

// Without one kept aside the book begins at its start, as it would if it were new.
void TakeState(BookRecord& record, const std::u16string& aside) {
    auto state = Split(aside, u"=");
    if (aside.empty()) state = {u"", record[Field::Charset], u"", u"", record[Field::Title]};
    state.resize(viewFields.size());
    for (std::size_t i = 0; i < viewFields.size(); ++i)
        record[viewFields[i]] = state[i];
}

void ExchangeViewState(MainForm& form, BookRecord& record) {
    const std::u16string section = form.menu.mUser[0].tag + u"\\" + record[Field::Path];
    const std::u16string state = StateOf(record);
    TakeState(record, IniReadString(*form.dataFile, section, asideKey));
    IniWriteString(*form.dataFile, section, asideKey, state);
}
} // namespace

void ChangeKind(MainForm& form, int index, int kind) {
    IniBatch oneWrite(*form.dataFile);
    const bool shown = index == 0 && IsShownBookListed(form);
    if (shown) SaveBookState(form, 0);
    MenuItem& item = form.menu.mFileList[index];
    BookRecord record = BookRecord::Parse(item.tag);
    const bool wasPage = record.Number(Field::Filter) == HtmlBook, isPage = kind == HtmlBook;
    if (wasPage != isPage) ExchangeViewState(form, record);
    if (wasPage && record[Field::FontName].empty()) TakePresentLook(form, record); // never a text
    record[Field::Filter] = NumberText(kind);
    item.tag = record.ToText();
    SaveHistoryItem(form, index);
    oneWrite.Commit();
    SetHistoryCaption(form, index);
    if (!shown) return;
    item.checked = false;
    form.menu.mBookmarkLast[0].tag = u"";
}
