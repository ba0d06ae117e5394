#include "app/view_events.h"

#include "app/auto_scroll.h"
#include "app/book_state.h"
#include "app/bookmark_menu.h"
#include "app/edit_menu.h"
#include "app/file_menu.h"
#include "app/main_form.h"
#include "app/main_window.h"
#include "app/open_book.h"
#include "app/page_engine.h"
#include "app/page_places.h"
#include "app/print_book.h"
#include "app/shown_book.h"
#include "app/view_menu.h"
#include "books/html_book.h"
#include "common/flag_scope.h"
#include "common/menu_items.h"
#include "common/text.h"
#include "reading/page_colors.h"
#include "reading/zoom.h"

#include <cstdlib>

void fwMain_Resize(MainForm& form) {
    if (form.resizing) return;
    const FlagScope resizing(form.resizing);
    FollowWindow(form.placement, *form.ports.window);
    LayOutForm(form);
}

void ToggleFullScreen(MainForm& form) {
    if (form.ports.window->IsFullScreen()) return LeaveFullScreen(form);
    form.ports.window->SetFullScreen(true);
    Announce(form, u"Full screen. Escape ends it.");
}

void LeaveFullScreen(MainForm& form) {
    if (!form.ports.window->IsFullScreen()) return;
    LeaveFullScreen(form.placement, *form.ports.window);
    Announce(form, u"No full screen any more.");
}

void fwMain_Zoom(MainForm& form, int steps) {
    for (int i = 0; i < std::abs(steps); ++i)
        mViewFontSize_Click(form, steps > 0 ? 0 : 1);
}

void rtMain_ContextMenu(MainForm& form) {
    EndAutoScroll(form); // the menu's own key comes as no key
    MenuTree& menu = form.menu;
    mEdit_Click(form, 0);
    mView_Click(form, 0);
    mBookmark_Click(form, 0);
    // "Define" alone says too little outside of its menu, whose opening takes this back.
    MenuItem& define = menu.mBookmarkNew[0];
    const std::size_t base = BaseCaption(define).size();
    define.shown = define.caption.substr(0, base) + u" Bookmark" + define.caption.substr(base);
    form.ports.menuBar->ShowContextMenu({&menu.mEditCopy, &menu.mEditCopyRTF, &menu.mEditSeparator1,
                                         &menu.mEditAll, &menu.mEditSeparator2, &menu.mEditFind,
                                         &menu.mEditNext, &menu.mEditSeparator3, &menu.mEditTitle,
                                         &menu.mBookmarkNew, &menu.mViewSeparator5,
                                         &menu.mViewColumn, &menu.mViewUnwrap});
}

void rtMain_FilesDropped(MainForm& form, const std::vector<std::u16string>& paths) {
    if (!paths.empty()) OpenBook(form, paths.front());
}

namespace {
void StoreDocument(MainForm& form) {
    BookRecord record = form.history.Record(0);
    StoreDocument(record, *form.ports.htmlView);
    form.history.SetRecord(0, record);
    SetHistoryCaption(form.history, 0);
    UpdateWindowTitle(form);
}

void BringToPlace(MainForm& form, const PageTop& top) {
    HtmlView& html = *form.ports.htmlView;
    PaintPage(html, form.ports.textView->BackColor());
    // Another size lays the page out again: the place is one of the page in the record's size, and
    // keys pressed while it loaded come after it.
    const BookRecord record = IsShownBookListed(form) ? form.history.Record(0) : BookRecord();
    const int step = WithinZoomSteps(record.Number(Field::FontSize));
    ZoomBy(form.page, html, step);
    SelectKeptInPage(form);
    // Where a page begins: who has scrolled on while it loaded stays there.
    if (top.offset > 0 || top.start > 0) html.BringToTop(top);
    ZoomBy(form.page, html, ZoomStep(form.menu.mViewFont[0]) - step);
    form.page.restored = true;
}
} // namespace

void wbMain_DocumentComplete(MainForm& form, const std::u16string& url) {
    const bool nothing = url.empty() || EqualIgnoringCase(url, u"http:///");
    if (nothing || !IsPageShown(form) || form.page.restored) return;
    const bool listed = IsShownBookListed(form);
    if (listed) StoreDocument(form);
    const int load = form.page.load;
    const PageTop top = FollowPage(form);
    if (form.closed || form.page.load != load) return; // while it was waited for
    BringToPlace(form, top);
    if (!listed) return;
    FillBookmarks(form.bookmarks, form.history.Record(0)[Field::Marks]);
    RefreshBookmarkMenu(form); // last, as it may wait for the page
}

void wbMain_Zoomed(MainForm& form) {
    if (!IsShownBookListed(form) || !HasPageBody(form)) return;
    // A page that was brought to its place has the size of its record.
    const int stored = form.history.Record(0).Number(Field::FontSize);
    if (stored != form.ports.htmlView->ZoomSteps()) SaveBookState(form, 0);
}

void wbMain_Gone(MainForm& form) {
    if (!IsPageShown(form)) return;
    SaveBookState(form, 0);
    form.page.restored = false;
    ShowBookMessage(form.messages,
                    form.page.path +
                        u"\r\nThe page can no longer be shown. Refresh (F5) loads it again.");
}

void wbMain_Command(MainForm& form, PageCommand command) {
    switch (command) {
    case PageCommand::Find: return mEditFind_Click(form, 0);
    case PageCommand::SelectAll: return mEditAll_Click(form, 0);
    case PageCommand::Copy: return mEditCopy_Click(form, 0);
    case PageCommand::Open: return mFileOpen_Click(form, 0);
    case PageCommand::ChangeEngine: return ChangePageEngine(form);
    case PageCommand::Print:
        if (form.ports.htmlView->Engine() == PageEngine::Own) PrintBook(form);
        return;
    }
}
