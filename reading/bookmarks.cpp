#include "reading/bookmarks.h"

#include "app/main_form.h"
#include "books/book_record.h"
#include "books/save_state.h"
#include "common/menu_items.h"
#include "common/text.h"

#include <algorithm>

namespace {
constexpr TextPos longestExcerpt =
    81; // units; a mark without a selection of its own has this length

// The marked text on one line; "" for a tag that is not two numbers.
std::u16string Excerpt(const MainForm& form, const std::u16string& tag) {
    const auto parts = Split(tag, u",");
    if (parts.size() != 2) return u"";
    const TextPos length = std::min(WholeNumber(parts[1]), longestExcerpt);
    std::u16string text =
        form.ports.textView->TextRange(std::max(WholeNumber(parts[0]), 0), length);
    std::ranges::replace_if(
        text, [](char16_t unit) { return unit < u' '; }, u' ');
    return text;
}

void CaptionBookmarks(MainForm& form) {
    MenuArray &list = form.menu.mBookmarkList, &deleteList = form.menu.mBookmarkDeleteList;
    for (int i = 0; i < list.Count(); ++i) {
        if (i == deleteList.Count()) AddMenuItem(deleteList);
        const std::u16string excerpt = Excerpt(form, list[i].tag);
        if (!excerpt.empty()) list[i].caption = deleteList[i].caption = excerpt;
    }
    deleteList.items.resize(list.items.size());
}

std::u16string JoinedTags(const MenuArray& list) {
    std::vector<std::u16string> tags;
    for (const MenuItem& item : list.items)
        tags.push_back(item.tag);
    return Join(tags, u"|");
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
    CaptionBookmarks(form);
    BookRecord record = BookRecord::Parse(menu.mFileList[0].tag);
    record[Field::Marks] = JoinedTags(list);
    menu.mFileList[0].tag = record.ToText();
    if (!noSave) SaveBookState(form, 0);
}
