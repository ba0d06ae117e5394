#include "reading/bookmarks.h"

#include "app/main_form.h"
#include "books/book_record.h"
#include "books/history_list.h"
#include "books/save_state.h"
#include "common/direction_controls.h"
#include "common/menu_items.h"
#include "common/text.h"
#include "reading/page_marks.h"
#include "reading/text_routines.h"

#include <algorithm>

namespace {
constexpr TextPos maxExcerptLength = 81; // units; a mark without a selection has this length

// The marked text; "" for a tag that is not two numbers.
std::u16string TextExcerpt(const MainForm& form, const std::u16string& tag) {
    const auto parts = Split(tag, u",");
    if (parts.size() != 2) return u"";
    const TextPos length = std::min(WholeNumber(parts[1]), maxExcerptLength);
    return form.ports.textView->TextRange(std::max(WholeNumber(parts[0]), 0), length);
}

// One for each tag; none at all when the page does not answer.
std::vector<std::u16string> Excerpts(MainForm& form, const std::vector<std::u16string>& tags) {
    if (IsPageShown(form)) return PageExcerpts(form, tags);
    std::vector<std::u16string> excerpts;
    for (const std::u16string& tag : tags)
        excerpts.push_back(TextExcerpt(form, tag));
    return excerpts;
}

std::vector<std::u16string> Tags(const MenuArray& list) {
    std::vector<std::u16string> tags;
    for (const MenuItem& item : list.items)
        tags.push_back(item.tag);
    return tags;
}

// A mark without an excerpt keeps its caption.
void CaptionBookmarks(MainForm& form) {
    MenuArray &list = form.menu.mBookmarkList, &deleteList = form.menu.mBookmarkDeleteList;
    auto excerpts = Excerpts(form, Tags(list));
    excerpts.resize(list.items.size());
    for (int i = 0; i < list.Count(); ++i) {
        if (i == deleteList.Count()) AddMenuItem(deleteList);
        const std::u16string& excerpt = excerpts[static_cast<std::size_t>(i)];
        if (!excerpt.empty()) list[i].caption = WithoutDirectionControls(OneLine(excerpt));
        deleteList[i].caption = list[i].caption;
    }
    deleteList.items.resize(list.items.size());
}
} // namespace

void LoadBookmarks(MainForm& form, const std::u16string& marks) {
    MenuArray& list = form.menu.mBookmarkList;
    int last = -1;
    for (const std::u16string& mark : Split(marks, u"|")) {
        if (mark.empty()) continue;
        if (++last == list.Count()) AddMenuItem(list);
        list[last].tag = mark;
        list[last].caption = u" ";
        list[last].checked = false;
        list[last].visible = true;
    }
    if (last < 0) list[0].caption = list[0].tag = u"";
    RefreshBookmarkMenu(form, std::max(last, 0), true);
    form.menu.mBookmark[0].tag = u"-1";
}

void RefreshBookmarkMenu(MainForm& form, int keepUpTo, bool noSave) {
    MenuTree& menu = form.menu;
    MenuArray& list = menu.mBookmarkList;
    if (keepUpTo >= 0 && list.Count() > keepUpTo + 1) list.items.resize(keepUpTo + 1);
    list[0].visible = menu.mBookmarkSeparator[0].visible = !list[0].tag.empty();
    if (IsShownBookListed(form)) {
        BookRecord record = BookRecord::Parse(menu.mFileList[0].tag);
        record[Field::Marks] = Join(Tags(list), u"|");
        menu.mFileList[0].tag = record.ToText();
    }
    CaptionBookmarks(form); // may wait for a page, and the window may close meanwhile
    if (!noSave) SaveBookState(form, 0);
}
