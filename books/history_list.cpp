#include "books/history_list.h"

#include "app/main_form.h"
#include "books/history_caption.h"
#include "common/direction_controls.h"
#include "common/list_persistence.h"
#include "common/menu_items.h"
#include "common/text.h"

#include <algorithm>

void SetHistoryCaption(MainForm& form, int index) {
    MenuItem& item = form.menu.mFileList[index];
    const BookRecord record = BookRecord::Parse(item.tag);
    item.caption = HistoryCaption(record, form.dateNames, form.ports.clock->Now());
    item.enabled = form.ports.files->FileExists(record.Path());
}

void SyncRemoveMenu(MainForm& form, int last) {
    MenuTree& menu = form.menu;
    const auto count = static_cast<std::size_t>(std::max(last + 1, 1)); // item 0 always stays
    if (menu.mFileList.items.size() > count) menu.mFileList.items.resize(count);
    if (menu.mFileRemoveList.items.size() > count) menu.mFileRemoveList.items.resize(count);
    for (int i = 0; i <= last; ++i) {
        if (i == menu.mFileRemoveList.Count()) AddMenuItem(menu.mFileRemoveList);
        menu.mFileRemoveList[i].caption = WithoutDirectionControls(GetBookPath(form, i));
    }
    menu.mFileList[0].visible = menu.mFileSeparator[0].visible = menu.mFileRemove[0].enabled =
        last >= 0;
}

std::u16string GetBookPath(const MainForm& form, int index) {
    return KeyToPath(RecordKey(form.menu.mFileList[index].tag));
}

bool IsBookShown(const MainForm& form) {
    const MenuItem& first = form.menu.mFileList[0];
    return first.checked && !first.tag.empty();
}

bool IsShownBookListed(const MainForm& form) {
    return IsBookShown(form) && GetBookPath(form, 0) == form.shownPath;
}

int HistoryCount(const MainForm& form) {
    const MenuArray& list = form.menu.mFileList;
    return list.Count() == 1 && list[0].tag.empty() ? 0 : list.Count();
}

int AddHistoryItem(MainForm& form, const std::u16string& record) {
    const int index = HistoryCount(form);
    if (index > 0) {
        AddMenuItem(form.menu.mFileList);
        AddMenuItem(form.menu.mFileRemoveList);
    }
    MenuItem& item = form.menu.mFileList[index];
    item.tag = record;
    item.checked = false;
    item.visible = true;
    return index;
}

void MoveHistoryItemToTop(MainForm& form, int index) {
    MenuArray& list = form.menu.mFileList;
    const std::u16string moved = list[index].tag;
    for (int i = index; i >= 1; --i)
        list[i].tag = list[i - 1].tag;
    list[0].tag = moved;
    for (int i = index; i >= 0; --i)
        SetHistoryCaption(form, i);
}

int FillHistory(MainForm& form, const std::vector<std::u16string>& records) {
    MenuArray& list = form.menu.mFileList;
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
        SetHistoryCaption(form, i);
        if (firstFound < 0 && list[i].enabled) firstFound = i;
    }
    SyncRemoveMenu(form, static_cast<int>(records.size()) - 1);
    return firstFound;
}

int FindInHistory(const MainForm& form, const std::u16string& path) {
    const std::u16string start = path + u"=";
    const MenuArray& list = form.menu.mFileList;
    for (int i = 0; i < list.Count(); ++i) {
        const std::u16string& tag = list[i].tag;
        if (!StartsWithIgnoringCase(tag, start)) continue;
        if (tag.starts_with(start) || form.ports.files->SameFile(GetBookPath(form, i), path))
            return i;
    }
    return -1;
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

void SaveHistoryItem(MainForm& form, int index) {
    const std::u16string& record = form.menu.mFileList[index].tag;
    const std::u16string key(RecordKey(record));
    if (key.empty()) return;
    if (SharesKeyInOtherCase(form.menu.mFileList, index)) return SaveHistoryList(form);
    const std::u16string rest = key.size() < record.size() ? record.substr(key.size() + 1) : u"";
    IniWriteString(*form.dataFile, HistorySection(form), key, rest);
    const auto inFile = std::ranges::find(form.historyInFile, key, KeyOfLine);
    if (inFile != form.historyInFile.end())
        *inFile = record;
    else
        form.historyInFile.push_back(record);
}

namespace {
// What another program has put into the list comes into the menu, behind the shown book.
void ShowMergedList(MainForm& form, const ListLines& lines) {
    MenuArray& list = form.menu.mFileList;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (i == list.items.size()) AddMenuItem(list);
        if (list[i].tag == lines[i]) continue;
        list[i].tag = lines[i];
        list[i].visible = true;
        SetHistoryCaption(form, static_cast<int>(i));
    }
    SyncRemoveMenu(form, static_cast<int>(lines.size()) - 1);
}
} // namespace

void SaveHistoryList(MainForm& form) {
    const std::u16string section = HistorySection(form);
    ListLines records;
    for (const MenuItem& item : form.menu.mFileList.items)
        if (!item.tag.empty()) records.push_back(item.tag);
    ListLines merged = form.dataFile->MergeSection(section, form.historyInFile, records);
    if (merged != records) ShowMergedList(form, merged);
    form.historyInFile = std::move(merged);
}

std::u16string HistorySection(const MainForm& form) {
    return form.menu.mUser[0].tag + u"\\mFileList";
}

std::u16string BookSection(const MainForm& form, const std::u16string& recordKey) {
    return form.menu.mUser[0].tag + u"\\" + recordKey;
}

void mFile_Click(MainForm& form, int) {
    MenuTree& menu = form.menu;
    const auto& books = menu.mFileList.items;
    const auto missing =
        std::ranges::count_if(books, [](const MenuItem& book) { return !book.enabled; });
    menu.mFileNonFound[0].enabled = HistoryCount(form) > 0 && missing > 0;

    const int kind = WholeNumber(menu.mFileEdit[0].tag);
    const Files& files = *form.ports.files;
    menu.mFileEdit[0].enabled = IsBookShown(form) && kind >= TextBook && kind <= HtmlBook &&
                                files.FileExists(menu.mOptionsEditor[kind].tag) &&
                                files.FileExists(GetBookPath(form, 0));
}
