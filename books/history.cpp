#include "books/history.h"

#include "books/history_caption.h"
#include "common/direction_controls.h"
#include "common/menu_items.h"
#include "common/text.h"

#include <algorithm>

int History::Count() const {
    return list.Count() == 1 && list[0].tag.empty() ? 0 : list.Count();
}

std::u16string GetBookPath(const History& history, int index) {
    return KeyToPath(RecordKey(history.list[index].tag));
}

int FindInHistory(const History& history, const std::u16string& path) {
    const std::u16string start = path + u"=";
    for (int i = 0; i < history.list.Count(); ++i) {
        const std::u16string& tag = history.list[i].tag;
        if (!StartsWithIgnoringCase(tag, start)) continue;
        if (tag.starts_with(start) || history.files.SameFile(GetBookPath(history, i), path))
            return i;
    }
    return -1;
}

void SetHistoryCaption(History& history, int index) {
    const BookRecord record = history.Record(index);
    MenuItem& item = history.list[index];
    item.caption = HistoryCaption(record, history.dateNames, history.clock.Now());
    item.shown = DirectedCaption(item.caption);
    item.enabled = history.files.FileExists(record.Path());
}

void SyncRemoveMenu(History& history, int last) {
    MenuArray &list = history.list, &removeList = history.removeList;
    const auto count = static_cast<std::size_t>(std::max(last + 1, 1)); // item 0 always stays
    if (list.items.size() > count) list.items.resize(count);
    if (removeList.items.size() > count) removeList.items.resize(count);
    for (int i = 0; i <= last; ++i) {
        if (i == removeList.Count()) AddMenuItem(removeList);
        removeList[i].caption = WithoutDirectionControls(GetBookPath(history, i));
        removeList[i].shown = DirectedCaption(removeList[i].caption);
    }
    list[0].visible = history.separator.visible = history.removeMenu.enabled = last >= 0;
}

int AddHistoryItem(History& history, const std::u16string& record) {
    const int index = history.Count();
    if (index > 0) {
        AddMenuItem(history.list);
        AddMenuItem(history.removeList);
    }
    MenuItem& item = history.list[index];
    item.tag = record;
    item.checked = false;
    item.visible = true;
    return index;
}

void MoveHistoryItemToTop(History& history, int index) {
    MenuArray& list = history.list;
    const std::u16string moved = list[index].tag;
    for (int i = index; i >= 1; --i)
        list[i].tag = list[i - 1].tag;
    list[0].tag = moved;
    for (int i = index; i >= 0; --i)
        SetHistoryCaption(history, i);
}

void RemoveHistoryItem(History& history, int index) {
    MenuArray& list = history.list;
    const int count = history.Count();
    for (int i = index; i + 1 < count; ++i) {
        list[i].tag = list[i + 1].tag;
        SetHistoryCaption(history, i);
    }
    if (count <= 1) list[0].tag = list[0].caption = u"";
    SyncRemoveMenu(history, count - 2);
}

void RemoveMissingBooks(History& history) {
    MenuArray& list = history.list;
    int kept = 0;
    for (int i = 0; i < history.Count(); ++i) {
        if (!history.files.FileExists(GetBookPath(history, i))) continue;
        list[kept].tag = std::u16string(list[i].tag);
        SetHistoryCaption(history, kept++);
    }
    if (kept == 0) list[0].tag = list[0].caption = u"";
    SyncRemoveMenu(history, kept - 1);
}

int FillHistory(History& history, const std::vector<std::u16string>& records) {
    MenuArray& list = history.list;
    list[0].caption = list[0].tag = u"";
    list[0].checked = false;
    int firstFound = -1;
    for (int i = 0; i < static_cast<int>(records.size()); ++i) {
        if (i == list.Count()) AddMenuItem(list);
        list[i].tag = records[i];
        if (records[i].find(u'=') == std::u16string::npos)
            list[i].tag += u'='; // a path alone is a record, too
        list[i].checked = false;
        list[i].visible = true;
        SetHistoryCaption(history, i);
        if (firstFound < 0 && list[i].enabled) firstFound = i;
    }
    SyncRemoveMenu(history, static_cast<int>(records.size()) - 1);
    return firstFound;
}
