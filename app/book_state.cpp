#include "app/book_state.h"

#include "app/carried_data_file.h"
#include "app/file_fingerprints.h"
#include "app/main_form.h"
#include "app/page_places.h"
#include "app/shown_book.h"
#include "app/text_places.h"
#include "books/book_script.h"
#include "books/html_book.h"
#include "books/record_format.h"
#include "common/menu_items.h"
#include "common/text.h"
#include "reading/caret.h"
#include "reading/zoom.h"

void StorePresentFormat(const MainForm& form, BookRecord& record) {
    StoreFormat(record, form.format, form.menu.mViewWordWrap[0].checked,
                CheckedItem(form.menu.mViewAlign));
}

namespace {
// `top` is where the page is, when it has been brought to its place. Else the record has that.
void StorePage(const MainForm& form, BookRecord& record, const std::optional<PageTop>& top) {
    if (!HasPageBody(form)) return;
    if (top)
        StorePagePlace(record, *form.ports.htmlView, *top);
    else
        StorePageSize(record, *form.ports.htmlView, ZoomStep(form.menu.mViewFont[0]));
}

// What of the views goes into a record.
enum class Stored { Format, FormatAndPlace };

void StoreText(const MainForm& form, BookRecord& record, Stored stored) {
    StorePresentFormat(form, record);
    if (stored == Stored::FormatAndPlace)
        record[Field::LastPos] = NumberText(FirstVisibleChar(*form.ports.textView));
}

void UpdateRecord(MainForm& form, int index, Stored stored) {
    const bool withPlace = stored == Stored::FormatAndPlace;
    BookRecord record = form.history.Record(index);
    const bool isPage = record.Kind() == BookKind::Html;
    record[Field::Access] = StoredDateTime(form.ports.clock->Now());
    record[Field::Charset] = NumberText(form.format.font.charset);
    record[Field::BackColor] = NumberText(form.ports.textView->BackColor());
    std::optional<PageTop> top;
    if (isPage && withPlace && HasPageBody(form)) top = form.ports.htmlView->Top();
    if (isPage)
        StorePage(form, record, top);
    else
        StoreText(form, record, stored);
    form.history.SetRecord(index, record);

    IniBatch oneWrite(*form.dataFile);
    const BookSettings settings = SettingsOf(form, record);
    const bool nothingChosen = index != 0 || form.book.chosen.codePage == 0;
    if (nothingChosen && !isPage)
        StoreNothingChosen(settings, record, form.ports.locale->AnsiCodePage());
    SaveHistoryItem(form, index);
    if (index == 0 && !record[Field::Path].empty() && !form.find.history.empty())
        SaveSearches(settings, form.find.history);
    if (withPlace) KeepPlaceOfDataFile(form);
    if (top) {
        KeepPageFile(form, record, settings);
        KeepPagePlaces(form, record, *top, settings);
    }
    if (withPlace && !isPage) KeepTextPlaces(form, record, settings);
    oneWrite.Commit();
}
} // namespace

void SaveBookState(MainForm& form, int index) {
    if (index == 0 && !IsShownBookListed(form)) return;
    UpdateRecord(form, index, index == 0 ? Stored::FormatAndPlace : Stored::Format);
}

void SaveNewBookState(MainForm& form, int index) {
    UpdateRecord(form, index, Stored::Format);
}

void SaveHistoryList(MainForm& form) {
    SaveHistoryList(form.history, *form.dataFile, CurrentProfile(form));
}

void SaveHistoryItem(MainForm& form, int index) {
    SaveHistoryItem(form.history, *form.dataFile, CurrentProfile(form), index);
}
