#include "reading/bookmarks.h"

#include "common/char_refs.h"
#include "common/direction_controls.h"
#include "common/menu_items.h"
#include "common/text.h"
#include "reading/caret.h"

#include <algorithm>
#include <limits>

namespace {
constexpr TextPos standardLength = 81; // of a mark without a fitting selection

TextPos StartOf(const std::u16string& tag) {
    return WholeNumber(std::u16string_view(tag).substr(0, tag.find(u',')));
}
} // namespace

std::optional<CharSpan> ParseMark(const std::u16string& tag) {
    const auto parts = Split(tag, u",");
    if (parts.size() != 2) return std::nullopt;
    const TextPos start = std::max(WholeNumber(parts[0]), 0);
    const TextPos maxLength = std::numeric_limits<TextPos>::max() - start;
    return CharSpan{start, std::clamp(WholeNumber(parts[1]), 0, maxLength)};
}

std::u16string MarkText(const CharSpan& mark) {
    return NumberText(mark.start) + u',' + NumberText(mark.length);
}

std::vector<std::u16string> MarkTags(const Bookmarks& bookmarks) {
    std::vector<std::u16string> tags;
    for (const MenuItem& item : bookmarks.list.items)
        tags.push_back(item.tag);
    return tags;
}

std::u16string MarksText(const Bookmarks& bookmarks) {
    return Join(MarkTags(bookmarks), u"|");
}

void FillBookmarks(Bookmarks& bookmarks, const std::u16string& marks) {
    MenuArray& list = bookmarks.list;
    int count = 0;
    for (const std::u16string& mark : Split(marks, u"|")) {
        if (mark.empty()) continue;
        if (count == list.Count()) AddMenuItem(list);
        MenuItem& item = list[count++];
        item.tag = mark;
        item.caption = u" ";
        item.checked = false;
        item.visible = true;
    }
    if (count == 0) list[0].caption = list[0].tag = u"";
    list.items.resize(std::max(count, 1));
    bookmarks.menu.tag = u"-1";
}

std::u16string JoinedMarks(const std::u16string& stored, const std::u16string& added) {
    std::vector<std::u16string> marks = Split(stored, u"|");
    std::erase(marks, u"");
    for (const std::u16string& mark : Split(added, u"|")) {
        const bool known = std::ranges::any_of(
            marks, [&](const std::u16string& other) { return StartOf(other) == StartOf(mark); });
        if (!mark.empty() && !known) marks.push_back(mark);
    }
    std::ranges::stable_sort(marks, {}, StartOf);
    return Join(marks, u"|");
}

std::vector<std::u16string> TextExcerpts(const TextView& view,
                                         const std::vector<std::u16string>& tags) {
    std::vector<std::u16string> excerpts;
    for (const std::u16string& tag : tags) {
        const auto mark = ParseMark(tag);
        excerpts.push_back(
            mark ? view.TextRange(mark->start, std::min(mark->length, standardLength)) : u"");
    }
    return excerpts;
}

void CaptionBookmarks(Bookmarks& bookmarks, std::vector<std::u16string> excerpts,
                      const std::function<bool(TextPos start)>& isUncertain) {
    MenuArray &list = bookmarks.list, &deleteList = bookmarks.deleteList;
    const bool known = !excerpts.empty(); // a page may not have answered
    excerpts.resize(list.items.size());
    for (int i = 0; i < list.Count(); ++i) {
        if (i == deleteList.Count()) AddMenuItem(deleteList);
        const std::u16string& excerpt = excerpts[static_cast<std::size_t>(i)];
        if (!excerpt.empty()) {
            const bool uncertain = isUncertain && isUncertain(StartOf(list[i].tag));
            list[i].caption = uncertain ? u"? " : u"";
            list[i].caption += WithoutDirectionControls(OneLine(excerpt));
        }
        // At the end of a book, or before many blank lines.
        const bool blank = known && !list[i].tag.empty() && TrimBlanks(list[i].caption).empty();
        list[i].shown = blank ? u"(no text)" : u"";
        deleteList[i].caption = list[i].caption;
        deleteList[i].shown = list[i].shown;
    }
    deleteList.items.resize(list.items.size());
}

int PlaceMark(Bookmarks& bookmarks, TextPos start) {
    MenuArray& list = bookmarks.list;
    if (bookmarks.IsEmpty()) return 0;
    int index = 0;
    while (index < list.Count() && StartOf(list[index].tag) < start)
        ++index;
    if (index < list.Count() && StartOf(list[index].tag) == start) return index;
    AddMenuItem(list);
    for (int i = list.Count() - 1; i > index; --i) {
        list[i].tag = list[i - 1].tag;
        list[i].caption = list[i - 1].caption;
    }
    return index;
}

void RemoveMark(Bookmarks& bookmarks, int index) {
    MenuArray& list = bookmarks.list;
    if (list.Count() == 1) return RemoveAllMarks(bookmarks);
    for (int i = index; i + 1 < list.Count(); ++i) {
        list[i].tag = list[i + 1].tag;
        list[i].caption = list[i + 1].caption;
    }
    list.items.pop_back();
}

void RemoveAllMarks(Bookmarks& bookmarks) {
    MenuArray& list = bookmarks.list;
    list.items.resize(1);
    list[0].caption = list[0].tag = u"";
    list[0].checked = false;
}

int CurrentBookmark(const Bookmarks& bookmarks) {
    return std::max(WholeNumber(bookmarks.menu.tag), 0);
}

void UncheckBookmarks(Bookmarks& bookmarks) {
    for (MenuItem& item : bookmarks.list.items)
        item.checked = false;
}

void ForgetLastPosition(Bookmarks& bookmarks) {
    bookmarks.last.tag.clear();
    bookmarks.lastTop = {};
}

std::optional<CharSpan> MarkInText(const TextView& view) {
    const TextPos start = view.SelStart(), selected = view.SelLength();
    if (start == 0) return std::nullopt;
    return CharSpan{start, InRange(selected, 1, maxMarkLength, true) ? selected : standardLength};
}

void GoToTextMark(TextView& view, const CharSpan& mark, int charset) {
    ScrollCaretToTop(view, mark.start);
    view.Select(view.SelStart(), mark.length);
    // The highlight begins one character before the mark; a mark at 0 cannot be defined.
    const TextPos start = LogicalCaretPos(view, charset) - 1;
    view.Select(std::max(start, 0), mark.length);
    view.ScrollIntoViewHorizontally(mark.start, mark.length);
}
