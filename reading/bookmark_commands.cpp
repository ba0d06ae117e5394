// The commands of the Bookmark menu.
#include "app/main_form.h"
#include "books/history_list.h"
#include "common/direction_controls.h"
#include "common/menu_items.h"
#include "common/text.h"
#include "reading/bookmarks.h"
#include "reading/caret.h"
#include "reading/page_marks.h"
#include "reading/text_routines.h"
#include "shell/confirm.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace {
constexpr TextPos maxMarkLength = 80;
constexpr TextPos ownLength = 81; // of a mark without a fitting selection

TextPos StartOf(const MenuItem& item) {
    return WholeNumber(item.tag.substr(0, item.tag.find(u',')));
}

// The one last gone to; the first when there is none, also in a book just opened (its tag is -1).
int CurrentBookmark(const MainForm& form) {
    return std::max(WholeNumber(form.menu.mBookmark[0].tag), 0);
}

void ClearChecks(MenuArray& list) {
    for (MenuItem& item : list.items)
        item.checked = false;
}

// The index of the mark at `start`, which is put in its place when it is new.
int PlaceMark(MenuArray& list, TextPos start) {
    const bool empty = list[0].tag.empty();
    int index = 0;
    while (!empty && index < list.Count() && StartOf(list[index]) < start)
        ++index;
    const bool known = !empty && index < list.Count() && StartOf(list[index]) == start;
    if (known || empty) return index;
    AddMenuItem(list);
    for (int i = list.Count() - 1; i > index; --i) {
        list[i].tag = list[i - 1].tag;
        list[i].caption = list[i - 1].caption;
    }
    return index;
}

// The marks behind it move up. The check stays where it is, as the current index does.
void TakeMark(MenuArray& list, int index) {
    for (int i = index; i + 1 < list.Count(); ++i) {
        list[i].tag = list[i + 1].tag;
        list[i].caption = list[i + 1].caption;
    }
    list.items.pop_back();
}

bool CanDefine(const MainForm& form) {
    const TextView& view = *form.ports.textView;
    return IsPageShown(form) ? CanMarkPage(form) : view.TextLength() > 0 && view.SelStart() > 0;
}

std::optional<PageMark> MarkInText(const TextView& view) {
    const TextPos start = view.SelStart(), selected = view.SelLength();
    if (start == 0) return std::nullopt;
    return PageMark{{start, InRange(selected, 1, maxMarkLength, true) ? selected : ownLength}, u""};
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
    const std::u16string last = form.menu.mBookmarkLast[0].tag;
    mBookmarkList_Click(form, index);
    form.menu.mBookmarkLast[0].tag = last;
}
} // namespace

void mBookmark_Click(MainForm& form, int) {
    MenuTree& menu = form.menu;
    const int count = menu.mBookmarkList.Count(), current = CurrentBookmark(form);
    menu.mBookmarkNew[0].enabled = IsShownBookListed(form) && CanDefine(form);
    menu.mBookmarkDelete[0].enabled = menu.mBookmarkClearAll[0].enabled =
        menu.mBookmarkList[0].visible;
    menu.mBookmarkNext[0].enabled = InRange(current, 0, count - 2, true);
    menu.mBookmarkPrev[0].enabled = InRange(current, 1, count - 1, true);
    menu.mBookmarkLast[0].enabled = !menu.mBookmarkLast[0].tag.empty();
    const int fresh = std::exchange(form.newBookmark, -1);
    for (int i = 0; i < count; ++i)
        menu.mBookmarkList[i].isDefault = i == fresh;
}

void mBookmarkNew_Click(MainForm& form, int) {
    const auto mark = IsPageShown(form) ? MarkInPage(form) : MarkInText(*form.ports.textView);
    if (!mark) return;
    MenuArray& list = form.menu.mBookmarkList;
    const int index = PlaceMark(list, mark->span.start);
    list[index].tag = NumberText(mark->span.start) + u',' + NumberText(mark->span.length);
    list[index].caption = WithoutDirectionControls(OneLine(mark->excerpt));
    RefreshBookmarkMenu(form, -1, false);
    form.newBookmark = index;
    form.ports.menuBar->ShowMenu(form.menu.mBookmark);
}

void mBookmarkNext_Click(MainForm& form, int) {
    const int current = CurrentBookmark(form);
    if (InRange(current, 0, form.menu.mBookmarkList.Count() - 2, true))
        GoKeepingLast(form, current + 1);
}

void mBookmarkPrev_Click(MainForm& form, int) {
    const int current = CurrentBookmark(form);
    if (InRange(current, 1, form.menu.mBookmarkList.Count() - 1, true))
        GoKeepingLast(form, current - 1);
}

void mBookmarkLast_Click(MainForm& form, int) {
    std::u16string& last = form.menu.mBookmarkLast[0].tag;
    if (last.empty() || !CanGo(form)) return;
    ClearChecks(form.menu.mBookmarkList);
    if (IsPageShown(form))
        form.ports.htmlView->ScrollTo(0, WholeNumber(last));
    else
        ScrollCaretToTop(*form.ports.textView, WholeNumber(last));
    last = form.menu.mBookmark[0].tag = u"";
}

void mBookmarkClearAll_Click(MainForm& form, int) {
    if (!ConfirmLoss(form, u"All bookmarks for this book will be lost.")) return;
    MenuArray& list = form.menu.mBookmarkList;
    list.items.resize(1);
    list[0].caption = list[0].tag = u"";
    list[0].checked = false;
    RefreshBookmarkMenu(form, -1, false);
    form.menu.mBookmark[0].tag = u"";
}

void mBookmarkDeleteList_Click(MainForm& form, int index) {
    MenuArray& list = form.menu.mBookmarkList;
    std::u16string& current = form.menu.mBookmark[0].tag;
    const bool isCurrent = !current.empty() && WholeNumber(current) == index;
    if (isCurrent) ClearChecks(list);
    if (list.Count() == 1) {
        list[0].caption = list[0].tag = u"";
        list[0].checked = false;
    } else {
        TakeMark(list, index);
    }
    RefreshBookmarkMenu(form, -1, false);
    if (isCurrent) current = u"";
}

namespace {
void GoToTextMark(MainForm& form, const PageSpan& span) {
    TextView& view = *form.ports.textView;
    ScrollCaretToTop(view, span.start);
    view.Select(view.SelStart(), span.length);
    // The highlight begins one character before the mark; a mark at 0 cannot be defined.
    const TextPos start = LogicalCaretPos(view, form.viewFont.charset) - 1;
    view.Select(std::max(start, 0), span.length);
    view.ScrollIntoViewHorizontally(span.start, span.length);
}
} // namespace

void mBookmarkList_Click(MainForm& form, int index) {
    if (!CanGo(form)) return;
    MenuTree& menu = form.menu;
    menu.mBookmarkLast[0].tag = NumberText(ViewPosition(form));
    menu.mBookmark[0].tag = NumberText(index);
    ClearChecks(menu.mBookmarkList);
    menu.mBookmarkList[index].checked = true;
    const auto parts = Split(menu.mBookmarkList[index].tag, u",");
    if (parts.size() != 2) return;
    const PageSpan span{std::max(WholeNumber(parts[0]), 0), std::max(WholeNumber(parts[1]), 0)};
    if (IsPageShown(form))
        GoToPageMark(form, span);
    else
        GoToTextMark(form, span);
}
