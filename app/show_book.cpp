// Showing the book of a history item: file and record become what is on the screen.
#include "app/auto_scroll.h"
#include "app/book_state.h"
#include "app/bookmark_menu.h"
#include "app/changed_book.h"
#include "app/charset.h"
#include "app/main_form.h"
#include "app/main_window.h"
#include "app/open_book.h"
#include "app/shown_book.h"
#include "app/text_places.h"
#include "books/book_file.h"
#include "books/book_script.h"
#include "books/record_format.h"
#include "common/flag_scope.h"
#include "common/text.h"
#include "formats/plain/plain_text_source.h"
#include "reading/caret.h"
#include "reading/hourglass.h"
#include "reading/zoom.h"

#include <utility>

namespace {
// The plain text of a book, nothing of a rich one; its charset is known then, and so is the script
// of the font.
std::shared_ptr<PlainTextSource> TextOf(MainForm& form, const BookRecord& record,
                                        const BookContent& content) {
    const int ansiCodePage = form.ports.locale->AnsiCodePage();
    ShownBook& book = form.book;
    book.chosen = CharsetChosenFor(SettingsOf(form, record), record, ansiCodePage);
    book.codePage = 0;
    book.plain = content.plainText != nullptr;
    if (!book.plain) return nullptr;
    auto text = DecodeBook(content.plainText, book.chosen, ansiCodePage);
    book.codePage = text->CodePage();
    int& charset = form.format.font.charset;
    const bool scriptChosen = book.chosen.codePage != 0 && !book.chosen.exact;
    if (!scriptChosen && book.codePage != 0) charset = ScriptCharset(book.codePage, charset);
    return text;
}

// What the guess says of the book's script goes into its record, so that the font dialog shows it
// and an older version of the program reads the book alike.
void KeepGuessedScript(MainForm& form) {
    if (form.book.chosen.codePage != 0 || form.book.codePage == 0) return;
    BookRecord record = form.history.Record(0);
    if (record.Number(Field::Charset) == form.format.font.charset) return;
    record[Field::Charset] = NumberText(form.format.font.charset);
    form.history.SetRecord(0, record);
    IniBatch oneWrite(*form.dataFile);
    StoreNothingChosen(SettingsOf(form, record), record, form.ports.locale->AnsiCodePage());
    SaveHistoryItem(form, 0);
}

void ShowInTextView(MainForm& form, BookRecord& record, BookFile file) {
    BookContent& content = *file.content;
    TextView& view = *form.ports.textView;
    form.format.font = FontOf(record, form.ports.window->DefaultViewFont());
    form.format.textColor = TextColorOf(record);
    auto text = TextOf(form, record, content);
    LeavePage(form);
    view.SetVisible(true);
    const Hourglass hourglass(view);
    view.SetBackColor(BackColorOf(record));
    view.SetFont(form.format.font);
    ApplyFont(view, form.format.font, Scrolling::Leave);
    SetWordWrap(view, *form.ports.window, form.menu.mViewWordWrap[0], record.Flag(Field::Wrap));
    SetUnwrapped(view, form.menu.mViewUnwrap[0], text && LoadUnwrapped(SettingsOf(form, record)));
    if (text)
        view.LoadText(std::move(text));
    else
        view.LoadRichText(std::move(content.richText), form.ports.locale->AnsiCodePage());
    ApplyTextColor(view, form.format.textColor, form.menu.mOptionsFileColor[0].checked,
                   Scrolling::Leave);
    ApplyAlignment(view, form.menu.mViewAlign, record.Number(Field::Align), Scrolling::Leave);
    FollowText(form, record, file.version);
    ScrollCaretToTop(view, record.Number(Field::LastPos));
    SelectKept(form);
    LayOutForm(form);
    KeepGuessedScript(form);
}

// The view is shown and starts to load the page. The rest follows when the document is complete.
void ShowInHtmlView(MainForm& form, const BookRecord& record,
                    const std::optional<FileVersion>& file) {
    HtmlView& html = *form.ports.htmlView;
    auto trail = form.Refreshing ? std::move(form.page.trail) : std::vector<PagePlace>();
    ResetPage(form.page);
    form.page.trail = std::move(trail);
    auto selection = std::move(form.places.selection);
    form.places = {};
    form.places.file = file;
    form.places.selection = std::move(selection);
    form.places.kept = form.places.stored = LoadPlaces(SettingsOf(form, record), PlacesOf::Page);
    ++form.page.load;
    form.page.path = record.Path();
    html.SetVisible(true);
    form.ports.textView->SetVisible(false);
    form.ports.textView->SetBackColor(BackColorOf(record));
    form.book.codePage = 0;
    SetZoomStep(form.menu.mViewFont[0], record.Number(Field::FontSize));
    html.SetEngine(LoadPageEngine(SettingsOf(form, record)));
    html.ExpectPlace(record.Number(Field::LastPos) > 0 || form.places.kept.position > 0 ||
                     form.places.selection);
    html.ExpectBackColor(BackColorOf(record));
    html.Navigate(form.page.path, form.page.load);
    html.OfferEngineChange(html.HasBothEngines()); // not when the browser's could not be loaded
    html.FocusView();
}

void MakeFirst(MainForm& form, int index) {
    const bool keepsOldState = form.ProfileSwitching || form.Refreshing || form.OpeningBook;
    if (!keepsOldState) SaveBookState(form, 0);
    MoveHistoryItemToTop(form.history, index);
    SyncRemoveMenu(form.history, form.history.Count() - 1);
}

// The book to show, read before anything changes.
void ReadBookToShow(MainForm& form, ListedBook& book) {
    const BookRecord record = form.history.Record(book.index);
    const Files& files = *form.ports.files;
    const bool isPage = record.Kind() == BookKind::Html;
    const Hourglass hourglass(*form.ports.textView);
    if (!book.file)
        book.file = OpenBookFile(files, record.Path(), MaxPlainText(form), record.Kind());
    if (isPage && !CanShowPages(form))
        book.file->problem = NoPageView(record.Path());
    else if (!isPage)
        ReadContent(files, MaxPlainText(form), *book.file);
}

} // namespace

void LeavePage(MainForm& form) {
    if (!IsPageShown(form)) return;
    ResetPage(form.page);
    form.places.selection.reset(); // of a page that never came
    form.ports.htmlView->Clear();
    form.ports.htmlView->SetVisible(false);
    form.ports.textView->SetVisible(true);
    form.ports.textView->FocusView();
}

void ShowBook(MainForm& form, ListedBook book) {
    const int index = book.index;
    ReadBookToShow(form, book);
    if (book.file->problem) {
        ShowBookMessage(form.messages, book.file->problem.text);
        return SetHistoryCaption(form.history, index);
    }
    if (!SettlePage(form)) return;

    if (!form.Refreshing) EndAutoScroll(form);
    const FlagScope loading(form.LoadingBook);
    if (index >= 1) MakeFirst(form, index);
    form.ports.textView->LoadPlainText(u"");
    if (!form.ProfileChanging && !form.Refreshing) SaveHistoryList(form);
    ForgetShownBook(form); // so that a book that memory does not hold keeps its record
    const std::u16string pathBefore = std::exchange(form.book.path, u"");
    form.bookmarks.menu.enabled = true;
    BookRecord record = form.history.Record(0);
    form.menu.mFileEdit[0].tag = record[Field::Filter];
    if (record.Kind() == BookKind::Html)
        ShowInHtmlView(form, record, book.file->version);
    else
        ShowInTextView(form, record, std::move(*book.file));
    form.menu.mFileList[0].checked = true;
    form.book.path = record.Path();
    if (form.book.path != pathBefore) {
        ForgetLastPosition(form.bookmarks); // in that book
        form.book.isNew = true;
    }
    WatchBookFile(form);
    UpdateWindowTitle(form);
    form.find.history = LoadSearches(SettingsOf(form, record));
    LoadBookmarks(form, record[Field::Marks]);
    form.ports.menuBar->Refresh();
}
