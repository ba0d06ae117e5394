// The history list in the data file.
#include "books/history.h"

#include "common/menu_items.h"
#include "common/text.h"

#include <algorithm>

std::u16string HistorySection(const std::u16string& profile) {
    return profile + u"\\mFileList";
}

std::u16string BookSection(const std::u16string& profile, const std::u16string& recordKey) {
    return profile + u'\\' + recordKey;
}

namespace {
// On a case-sensitive file system two books may have keys that the data file takes for one.
bool SharesKeyInOtherCase(const MenuArray& list, int index) {
    const auto key = RecordKey(list[index].tag);
    return std::ranges::any_of(list.items, [&](const MenuItem& item) {
        const auto other = RecordKey(item.tag);
        return other.size() == key.size() && other != key && EqualIgnoringCase(other, key);
    });
}
} // namespace

void SaveHistoryItem(History& history, IniFile& file, const std::u16string& profile, int index) {
    const std::u16string& record = history.list[index].tag;
    const std::u16string key(RecordKey(record));
    if (key.empty()) return;
    if (SharesKeyInOtherCase(history.list, index)) return SaveHistoryList(history, file, profile);
    const std::u16string rest = key.size() < record.size() ? record.substr(key.size() + 1) : u"";
    IniWriteString(file, HistorySection(profile), key, rest);
    const auto inFile = std::ranges::find(history.inFile, key, KeyOfLine);
    if (inFile != history.inFile.end())
        *inFile = record;
    else
        history.inFile.push_back(record);
}

namespace {
// What another program has put into the list comes into the menu, behind the shown book.
void ShowMergedList(History& history, const ListLines& lines) {
    MenuArray& list = history.list;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (i == list.items.size()) AddMenuItem(list);
        if (list[i].tag == lines[i]) continue;
        list[i].tag = lines[i];
        list[i].visible = true;
        SetHistoryCaption(history, static_cast<int>(i));
    }
    SyncRemoveMenu(history, static_cast<int>(lines.size()) - 1);
}
} // namespace

void SaveHistoryList(History& history, IniFile& file, const std::u16string& profile) {
    ListLines records;
    for (const MenuItem& item : history.list.items)
        if (!item.tag.empty()) records.push_back(item.tag);
    ListLines merged = file.MergeSection(HistorySection(profile), history.inFile, records);
    if (merged != records) ShowMergedList(history, merged);
    history.inFile = std::move(merged);
}
