#include "books/save_state.h"

#include "app/main_form.h"
#include "books/book_record.h"
#include "books/book_script.h"
#include "books/history_list.h"
#include "books/html_book.h"
#include "common/menu_items.h"
#include "common/text.h"
#include "reading/caret.h"
#include "reading/find.h"

namespace {
std::u16string FlagText(bool on) {
    return on ? u"1" : u"0";
}

} // namespace

void TakePresentLook(const MainForm& form, BookRecord& record) {
    const ViewFont& font = form.viewFont;
    record[Field::FontName] = Replace(font.name, u"=", u"");
    record[Field::FontSize] = NumberText(RoundToEven(font.size));
    record[Field::Bold] = FlagText(font.bold);
    record[Field::Italic] = FlagText(font.italic);
    record[Field::Underline] = FlagText(font.underline);
    record[Field::Strikethru] = FlagText(font.strikethrough);
    record[Field::Wrap] = FlagText(form.menu.mViewWordWrap[0].checked);
    record[Field::Align] = NumberText(CheckedItem(form.menu.mViewAlign));
    record[Field::ForeColor] = NumberText(form.textColor);
}

namespace {
void UpdateRecord(MainForm& form, int index, bool takesPlace) {
    BookRecord record = BookRecord::Parse(form.menu.mFileList[index].tag);
    record[Field::Access] = StoredDateTime(form.ports.clock->Now());
    record[Field::Charset] = NumberText(form.viewFont.charset);
    record[Field::BackColor] = NumberText(form.ports.textView->BackColor());
    if (record.Number(Field::Filter) == HtmlBook) {
        TakePageState(form, record, takesPlace);
    } else {
        TakePresentLook(form, record);
        if (takesPlace) record[Field::LastPos] = NumberText(FirstVisibleChar(*form.ports.textView));
    }
    form.menu.mFileList[index].tag = record.ToText();
    IniBatch oneWrite(*form.dataFile);
    const bool nothingChosen = index != 0 || form.chosenCodePage == 0;
    if (nothingChosen && record.Number(Field::Filter) != HtmlBook) KeepNothingChosen(form, record);
    SaveHistoryItem(form, index);
    if (index == 0) SaveFindHistory(form, record[Field::Path]);
    oneWrite.Commit();
}
} // namespace

void SaveBookState(MainForm& form, int index) {
    if (index == 0 && !IsShownBookListed(form)) return;
    UpdateRecord(form, index, index == 0);
}

void SaveNewBookState(MainForm& form, int index) {
    UpdateRecord(form, index, false);
}
