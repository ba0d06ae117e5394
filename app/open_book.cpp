#include "app/open_book.h"

#include "app/book_state.h"
#include "app/main_form.h"
#include "app/moved_books.h"
#include "app/shown_book.h"
#include "books/book_file.h"
#include "books/other_view.h"
#include "common/flag_scope.h"
#include "common/text.h"
#include "formats/foreign_format.h"

#include <utility>

namespace {
// A record for a book never opened before.
std::u16string NewRecord(const BookFile& file, BookKind kind) {
    BookRecord record;
    record[Field::Path] = PathToKey(file.path);
    record[Field::Size] =
        NumberText(file.version ? static_cast<std::int64_t>(file.version->size) : 0);
    record.SetKind(kind);
    return record.ToText();
}

// Gives history item `index` this kind and writes its record. The shown book is loaded again when
// its item is next clicked.
void ChangeKind(MainForm& form, int index, BookKind kind) {
    IniBatch oneWrite(*form.dataFile);
    const bool shown = index == 0 && IsShownBookListed(form);
    if (shown) SaveBookState(form, 0);
    BookRecord record = form.history.Record(index);
    const bool wasPage = record.Kind() == BookKind::Html, isPage = kind == BookKind::Html;
    if (wasPage != isPage) ExchangeViewState(record, SettingsOf(form, record));
    if (wasPage && record[Field::FontName].empty()) // never shown as a text
        StorePresentFormat(form, record);
    record.SetKind(kind);
    form.history.SetRecord(index, record);
    SaveHistoryItem(form, index);
    oneWrite.Commit();
    SetHistoryCaption(form.history, index);
    if (!shown) return;
    ForgetShownBook(form);
    ForgetLastPosition(form.bookmarks);
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

// Whether a book that the list does not hold may be added: of a file of another format the user is
// asked, when the profile has been entered if that is being done.
bool MayAdd(MainForm& form, const BookFile& file) {
    const std::u16string format(ForeignFormat(file.start));
    if (format.empty()) return true;
    if (form.ProfileChanging) {
        form.waitingBooks.push_back({file.path});
        return false;
    }
    return ConfirmForeignFile(form.messages, file.path, format);
}
} // namespace

ListedBook AddBook(MainForm& form, const std::u16string& path, RequestedKind kind) {
    BookFile file =
        OpenBookFile(*form.ports.files, path, MaxPlainText(form), kind.value_or(KindOfName(path)));
    if (file.problem) {
        ShowBookMessage(form.messages, file.problem.text);
        return {};
    }
    int index = FindInHistory(form.history, path);
    if (!SettlePage(form)) return {};
    if (index < 0) index = TakeOverMovedBook(form, file);
    if (index >= 0) {
        if (!CorrectKind(form, index, kind, file.start)) return {};
        return {index, std::move(file)};
    }
    if (!MayAdd(form, file)) return {};

    SaveBookState(form, 0);
    const BookKind newKind = kind.value_or(KindOfBook(path, file.start));
    index = AddHistoryItem(form.history, NewRecord(file, newKind));
    SaveNewBookState(form, index);
    SetHistoryCaption(form.history, index);
    SyncRemoveMenu(form.history, index);
    return {index, std::move(file)};
}

void OpenBook(MainForm& form, const std::u16string& path, RequestedKind kind) {
    ListedBook book = AddBook(form, path, kind);
    if (book.index < 0 || (book.index == 0 && IsBookShown(form))) return;
    const FlagScope opening(form.OpeningBook);
    ShowBook(form, std::move(book));
}

BookFile OpenShownBookFile(const MainForm& form) {
    const BookRecord record = form.history.Record(0);
    return OpenBookFile(*form.ports.files, record.Path(), MaxPlainText(form), record.Kind());
}

void ReloadBook(MainForm& form, BookFile file) {
    // Opened before the view is given up: a file that has gone leaves the text on the screen.
    if (file.problem) return ShowBookMessage(form.messages, file.problem.text);
    if (!SettlePage(form)) return;
    SaveBookState(form, 0);
    const FlagScope refreshing(form.Refreshing);
    ShowBook(form, {0, std::move(file)});
}
