#include "books/html_book.h"

#include "app/main_form.h"
#include "books/book_file.h"
#include "books/book_kind.h"
#include "books/charsets.h"
#include "books/history_list.h"
#include "books/open_book.h"
#include "books/save_state.h"
#include "common/text.h"
#include "reading/bookmarks.h"
#include "reading/page_colors.h"
#include "reading/text_routines.h"
#include "reading/zoom.h"
#include "shell/window_title.h"

#include <algorithm>

bool CanShowPages(const MainForm& form) {
    return form.ports.htmlView && form.ports.htmlView->IsAvailable();
}

bool IsPageShown(const MainForm& form) {
    return !form.page.path.empty();
}

bool HasPageBody(const MainForm& form) {
    return IsPageShown(form) && form.page.restored && form.ports.htmlView->HasBody();
}

void ShowInHtmlView(MainForm& form, const BookRecord& record, Color backColor) {
    HtmlView& html = *form.ports.htmlView;
    const int load = form.page.load + 1;
    form.page = {};
    form.page.load = load;
    form.page.path = record.Path();
    html.SetVisible(true);
    form.ports.textView->SetVisible(false);
    form.ports.textView->SetBackColor(backColor);
    form.shownCodePage = 0;
    SetZoomStep(form, record.Number(Field::FontSize));
    html.Navigate(form.page.path, load);
    html.FocusView();
}

void LeavePage(MainForm& form) {
    if (!IsPageShown(form)) return;
    const int load = form.page.load; // numbers are not used again
    form.page = {};
    form.page.load = load;
    form.ports.htmlView->Clear();
    form.ports.htmlView->SetVisible(false);
    form.ports.textView->SetVisible(true);
    form.ports.textView->FocusView();
}

namespace {
int PageCharset(const HtmlView& html) {
    return CodePageToCharset(CharsetCodePage(CharsetTableName(html.Charset())));
}

// One line of bounded length, without what separates the fields of a record.
std::u16string StoredTitle(const std::u16string& title) {
    constexpr std::size_t maxTitleLength = 1000; // units; more than any caption shows
    const auto decoded =
        OneLine(DecodeCharRefs(std::u16string_view(title).substr(0, maxTitleLength)));
    return Replace(TrimBlanks(decoded), u"=", u"&#61;");
}

void TakeDocumentIntoRecord(MainForm& form) {
    const HtmlView& html = *form.ports.htmlView;
    BookRecord record = BookRecord::Parse(form.menu.mFileList[0].tag);
    record[Field::Charset] = NumberText(PageCharset(html));
    record[Field::Title] = StoredTitle(html.Title());
    form.menu.mFileList[0].tag = record.ToText();
    SetHistoryCaption(form, 0);
    UpdateWindowTitle(form);
}

void BringToPlace(MainForm& form) {
    HtmlView& html = *form.ports.htmlView;
    PaintPage(form);
    // Another size lays the page out anew: the place is one of the page in the record's size, and
    // keys pressed while it loaded come after it.
    const BookRecord record =
        IsShownBookListed(form) ? BookRecord::Parse(form.menu.mFileList[0].tag) : BookRecord();
    const int step = WithinZoomSteps(record.Number(Field::FontSize));
    ZoomBy(form, step);
    html.ScrollTo(0, std::max(record.Number(Field::LastPos), 0));
    ZoomBy(form, ZoomStep(form) - step);
    form.page.restored = true;
}
} // namespace

void wbMain_DocumentComplete(MainForm& form, const std::u16string& url) {
    const bool nothing = url.empty() || EqualIgnoringCase(url, u"http:///");
    if (nothing || !IsPageShown(form) || form.page.restored) return;
    const bool listed = IsShownBookListed(form);
    if (listed) TakeDocumentIntoRecord(form);
    BringToPlace(form);
    if (listed) RefreshBookmarkMenu(form, -1, true); // last, as it may wait for the page
}

void TakePageState(const MainForm& form, BookRecord& record, bool takesPlace) {
    if (!HasPageBody(form)) return;
    const HtmlView& html = *form.ports.htmlView;
    record[Field::FontSize] = NumberText(takesPlace ? html.ZoomSteps() : ZoomStep(form));
    record[Field::Charset] = NumberText(PageCharset(html));
    if (takesPlace) record[Field::LastPos] = NumberText(html.ScrollTop());
}

void wbMain_Gone(MainForm& form) {
    if (!IsPageShown(form)) return;
    SaveBookState(form, 0);
    form.page.restored = false;
    ShowBookMessage(form, form.page.path +
                              u"\r\nThe page can no longer be shown. Refresh (F5) loads it again.");
}
