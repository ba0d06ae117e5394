#include "app/bookmark_menu.h"

#include "app/book_state.h"
#include "app/main_form.h"
#include "app/page_places.h"
#include "app/shown_book.h"
#include "app/text_places.h"
#include "common/char_refs.h"
#include "common/direction_controls.h"
#include "common/text.h"
#include "reading/caret.h"
#include "reading/page_marks.h"

#include <utility>

void LoadBookmarks(MainForm& form, const std::u16string& marks) {
    FillBookmarks(form.bookmarks, marks);
    RefreshBookmarkMenu(form);
}

namespace {
std::vector<std::u16string> Excerpts(MainForm& form) {
    const auto tags = MarkTags(form.bookmarks);
    if (!IsPageShown(form)) return TextExcerpts(*form.ports.textView, tags);
    if (!HasPageBody(form)) return {};
    return PageExcerpts(form, tags);
}

void SaveMarks(MainForm& form) {
    RefreshBookmarkMenu(form);
    SaveBookState(form, 0);
}

bool CanDefine(const MainForm& form) {
    if (IsPageShown(form)) return HasPageBody(form) && CanMarkPage(*form.ports.htmlView);
    const TextView& view = *form.ports.textView;
    return view.TextLength() > 0 && view.SelStart() > 0;
}

// Of a text the excerpt comes with its place.
std::optional<PageMark> MarkToDefine(MainForm& form) {
    if (IsPageShown(form))
        return HasPageBody(form) ? MarkInPage(*form.ports.htmlView) : std::nullopt;
    const auto mark = MarkInText(*form.ports.textView);
    return mark ? std::optional(PageMark{*mark, u""}) : std::nullopt;
}

// A page goes nowhere while it loads.
bool CanGo(const MainForm& form) {
    return !IsPageShown(form) || HasPageBody(form);
}

// The place in the book as Last Unmarked Position keeps it.
int ViewPosition(const MainForm& form) {
    return IsPageShown(form) ? form.ports.htmlView->ScrollTop()
                             : FirstVisibleChar(*form.ports.textView);
}

// Next and Previous leave the last unmarked position as it was.
void GoKeepingLast(MainForm& form, int index) {
    const std::u16string last = form.bookmarks.last.tag;
    const PageTop lastTop = form.bookmarks.lastTop;
    mBookmarkList_Click(form, index);
    form.bookmarks.last.tag = last;
    form.bookmarks.lastTop = lastTop;
}
} // namespace

void RefreshBookmarkMenu(MainForm& form) {
    Bookmarks& bookmarks = form.bookmarks;
    bookmarks.list[0].visible = bookmarks.separator.visible = !bookmarks.IsEmpty();
    if (IsShownBookListed(form)) {
        BookRecord record = form.history.Record(0);
        record[Field::Marks] = MarksText(bookmarks);
        form.history.SetRecord(0, record);
    }
    // May wait for a page, while the window is closed.
    CaptionBookmarks(bookmarks, Excerpts(form),
                     [&](TextPos start) { return IsUncertainMark(form, start); });
}

void mBookmark_Click(MainForm& form, int) {
    MenuTree& menu = form.menu;
    const int count = menu.mBookmarkList.Count(), current = CurrentBookmark(form.bookmarks);
    menu.mBookmarkNew[0].shown.clear();
    menu.mBookmarkNew[0].enabled = IsShownBookListed(form) && CanDefine(form);
    menu.mBookmarkDelete[0].enabled = menu.mBookmarkClearAll[0].enabled =
        menu.mBookmarkList[0].visible;
    menu.mBookmarkNext[0].enabled = InRange(current, 0, count - 2, true);
    menu.mBookmarkPrev[0].enabled = InRange(current, 1, count - 1, true);
    menu.mBookmarkLast[0].enabled = !menu.mBookmarkLast[0].tag.empty();
    const int defined = std::exchange(form.bookmarks.defined, -1);
    for (int i = 0; i < count; ++i)
        menu.mBookmarkList[i].isDefault = i == defined;
}

void mBookmarkNew_Click(MainForm& form, int) {
    const auto mark = MarkToDefine(form);
    if (!mark) return;
    const int index = PlaceMark(form.bookmarks, mark->span.start);
    MenuItem& item = form.menu.mBookmarkList[index];
    item.tag = MarkText(mark->span);
    MakeMarkCertain(form, mark->span.start);
    item.caption = WithoutDirectionControls(OneLine(mark->excerpt));
    SaveMarks(form);
    form.bookmarks.defined = index;
    form.ports.menuBar->ShowMenu(form.menu.mBookmark);
}

void mBookmarkNext_Click(MainForm& form, int) {
    const int current = CurrentBookmark(form.bookmarks);
    if (InRange(current, 0, form.menu.mBookmarkList.Count() - 2, true))
        GoKeepingLast(form, current + 1);
}

void mBookmarkPrev_Click(MainForm& form, int) {
    const int current = CurrentBookmark(form.bookmarks);
    if (InRange(current, 1, form.menu.mBookmarkList.Count() - 1, true))
        GoKeepingLast(form, current - 1);
}

void mBookmarkLast_Click(MainForm& form, int) {
    const std::u16string& last = form.bookmarks.last.tag;
    if (last.empty() || !CanGo(form)) return;
    UncheckBookmarks(form.bookmarks);
    if (IsPageShown(form))
        form.ports.htmlView->BringToTop(form.bookmarks.lastTop);
    else
        ScrollCaretToTop(*form.ports.textView, WholeNumber(last));
    ForgetLastPosition(form.bookmarks);
    form.bookmarks.menu.tag = u"";
}

void mBookmarkClearAll_Click(MainForm& form, int) {
    if (!ConfirmLoss(form.messages, u"All bookmarks for this book will be lost.")) return;
    RemoveAllMarks(form.bookmarks);
    SaveMarks(form);
    form.bookmarks.menu.tag = u"";
}

void mBookmarkDeleteList_Click(MainForm& form, int index) {
    std::u16string& current = form.bookmarks.menu.tag;
    const bool isCurrent = !current.empty() && WholeNumber(current) == index;
    if (isCurrent) UncheckBookmarks(form.bookmarks);
    RemoveMark(form.bookmarks, index);
    SaveMarks(form);
    if (isCurrent) current = u"";
}

void mBookmarkList_Click(MainForm& form, int index) {
    if (!CanGo(form)) return;
    form.bookmarks.last.tag = NumberText(ViewPosition(form));
    if (IsPageShown(form)) form.bookmarks.lastTop = PlaceToReturnTo(*form.ports.htmlView);
    form.bookmarks.menu.tag = NumberText(index);
    UncheckBookmarks(form.bookmarks);
    form.menu.mBookmarkList[index].checked = true;
    const auto mark = ParseMark(form.menu.mBookmarkList[index].tag);
    if (!mark) return;
    if (IsPageShown(form))
        GoToPageMark(*form.ports.htmlView, *mark);
    else
        GoToTextMark(*form.ports.textView, *mark, form.format.font.charset);
}
