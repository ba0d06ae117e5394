// The history list in the data file.
#include "books/history.h"

#include "common/hash.h"
#include "common/menu_items.h"
#include "common/text.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

std::u16string HistorySection(const std::u16string& profile) {
    return profile + u"\\mFileList";
}

namespace {
// On a case-sensitive file system two books may have keys that the data file takes for one.
// Asked for each value of a book's section, so a record whose key has another length costs no more
// than a look at the place where it would end.
bool SharesKeyInOtherCase(const MenuArray& list, std::u16string_view key) {
    return std::ranges::any_of(list.items, [&](const MenuItem& item) {
        const std::u16string_view record = item.tag;
        const bool endsThere = record.size() == key.size() ||
                               (record.size() > key.size() && record[key.size()] == u'=');
        const auto other = record.substr(0, key.size());
        return endsThere && other != key && EqualIgnoringCase(other, key);
    });
}

// Tells keys apart that differ in case only: 8 hexadecimal digits. They are in data files, so they
// stay as they are.
std::u16string HashOf(std::u16string_view key) {
    const std::uint32_t hash = Fnv1a(key);
    std::u16string digits;
    for (int shift = 28; shift >= 0; shift -= 4)
        digits += u"0123456789abcdef"[hash >> shift & 15];
    return digits;
}
} // namespace

std::u16string BookSection(const History& history, const std::u16string& profile,
                           const std::u16string& recordKey) {
    std::u16string section = profile + u'\\' + recordKey;
    if (!SharesKeyInOtherCase(history.list, recordKey)) return section;
    return section + u'\\' + HashOf(recordKey);
}

void SaveHistoryItem(History& history, IniFile& file, const std::u16string& profile, int index) {
    const std::u16string& record = history.list[index].tag;
    const std::u16string key(RecordKey(record));
    if (key.empty()) return;
    if (SharesKeyInOtherCase(history.list, key)) return SaveHistoryList(history, file, profile);
    const std::u16string rest = key.size() < record.size() ? record.substr(key.size() + 1) : u"";
    IniWriteString(file, HistorySection(profile), key, rest);
    const auto inFile = std::ranges::find(history.inFile, key, KeyOfLine);
    if (inFile != history.inFile.end())
        *inFile = record;
    else
        history.inFile.push_back(record);
}

namespace {
// What another program has put into the list comes into the menu, after the shown book.
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
