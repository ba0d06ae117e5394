#include "app/open_book.h"

#include "app/book_state.h"
#include "app/main_form.h"
#include "app/moved_books.h"
#include "app/shown_book.h"
#include "books/book_file.h"
#include "books/other_view.h"
#include "common/flag_scope.h"
#include "common/text.h"

namespace {
// A record for a book never opened before.
std::u16string NewRecord(const Files& files, const std::u16string& path, BookKind kind) {
    BookRecord record;
    record[Field::Path] = PathToKey(path);
    const auto version = files.Version(path);
    record[Field::Size] = NumberText(version ? static_cast<std::int64_t>(version->size) : 0);
    record.SetKind(kind);
    return record.ToText();
}

// Gives history item `index` this kind and writes its record. The shown book is loaded anew when
// its item is next clicked.
void ChangeKind(MainForm& form, int index, BookKind kind) {
    IniBatch oneWrite(*form.dataFile);
    const bool shown = index == 0 && IsShownBookListed(form);
    if (shown) SaveBookState(form, 0);
    BookRecord record = form.history.Record(index);
    const bool wasPage = record.Kind() == BookKind::Html, isPage = kind == BookKind::Html;
    if (wasPage != isPage) ExchangeViewState(record, *form.dataFile, SectionOf(form, record));
    if (wasPage && record[Field::FontName].empty()) // never shown as a text
        StorePresentFormat(form, record);
    record.SetKind(kind);
    form.history.SetRecord(index, record);
    SaveHistoryItem(form, index);
    oneWrite.Commit();
    SetHistoryCaption(form.history, index);
    if (!shown) return;
    ForgetShownBook(form);
    form.bookmarks.last.tag = u"";
}

// Whether the listed book can be shown as it is asked for.
bool CorrectKind(MainForm& form, int index, RequestedKind asked, std::string_view firstBytes) {
    const BookRecord record = form.history.Record(index);
    const BookKind listed = record.Kind();
    const BookKind kind = KindOfListedBook(listed, asked, record.Path(), firstBytes);
    if (kind == listed) return true;
    if (kind == BookKind::Html && !CanShowPages(form)) {
        if (!asked) return true; // it can still be read as it was
        ShowBookMessage(form.messages, NoPageView(record.Path()).text);
        return false;
    }
    ChangeKind(form, index, kind);
    return true;
}
} // namespace

int AddBook(MainForm& form, const std::u16string& path, RequestedKind kind) {
    const BookStart start = ExamineBookFile(*form.ports.files, path, MaxPlainText(form));
    if (start.problem) {
        ShowBookMessage(form.messages, start.problem.text);
        return -1;
    }
    int known = FindInHistory(form.history, path);
    if (!SettleZoom(form)) return -1;
    if (known < 0) known = TakeOverMovedBook(form, path);
    if (known >= 0) return CorrectKind(form, known, kind, start.bytes) ? known : -1;

    SaveBookState(form, 0);
    const BookKind newKind = kind.value_or(KindOfBook(path, start.bytes));
    const int added = AddHistoryItem(form.history, NewRecord(*form.ports.files, path, newKind));
    SaveNewBookState(form, added);
    SetHistoryCaption(form.history, added);
    SyncRemoveMenu(form.history, added);
    return added;
}

void OpenBook(MainForm& form, const std::u16string& path, RequestedKind kind) {
    const int index = AddBook(form, path, kind);
    if (index < 0 || (index == 0 && IsBookShown(form))) return;
    const FlagScope opening(form.OpeningBook);
    ShowBook(form, index);
}

void ReloadBook(MainForm& form) {
    // Examined before the view is given up: a file that has gone leaves the text on the screen.
    const auto path = GetBookPath(form.history, 0);
    const BookStart start = ExamineBookFile(*form.ports.files, path, MaxPlainText(form));
    if (start.problem) return ShowBookMessage(form.messages, start.problem.text);
    if (!SettleZoom(form)) return;
    SaveBookState(form, 0);
    const FlagScope refreshing(form.Refreshing);
    ShowBook(form, 0);
}
