#include "app/profiles.h"

#include "app/late_data_file.h"
#include "app/main_form.h"
#include "app/profile_list.h"
#include "books/history_list.h"
#include "books/html_book.h"
#include "books/open_book.h"
#include "common/flag_scope.h"
#include "common/list_persistence.h"
#include "common/menu_items.h"
#include "common/text.h"
#include "shell/confirm.h"
#include "shell/options.h"
#include "shell/window_title.h"

#include <algorithm>

namespace {
void SaveProfileList(MainForm& form) {
    ListLines names;
    for (const MenuItem& profile : form.menu.mProfileList.items)
        names.push_back(profile.caption);
    SaveProfileNames(*form.dataFile, names, form.profilesInFile);
    // Another program may have added some.
    MenuArray& list = form.menu.mProfileList;
    for (std::size_t i = 0; i < form.profilesInFile.size(); ++i) {
        if (i == list.items.size()) AddMenuItem(list);
        list[i].caption = form.profilesInFile[i];
    }
    SyncProfileDeleteMenu(form);
}

// Makes item `index` the current profile: the first of the list, the others keep their order.
void MakeCurrent(MainForm& form, int index) {
    MenuArray& list = form.menu.mProfileList;
    std::u16string& current = form.menu.mUser[0].tag;
    if (EqualIgnoringCase(list[index].caption, current)) return;
    if (!current.empty()) SaveWindowPlacement(form);
    current = list[index].caption;
    for (int k = index; k >= 1; --k)
        list[k].caption = list[k - 1].caption;
    list[0].caption = current;
    SaveProfileList(form);
}

void RestorePlacement(MainForm& form) {
    form.placement = LoadWindowPlacement(form);
    if (form.ports.window->State() == WindowState::Normal) MoveToPlacement(form);
    LayOutForm(form);
}

// Books that were opened before the list could be read.
void AddMissingRecords(MainForm& form, const std::vector<std::u16string>& records) {
    for (const std::u16string& text : records) {
        const BookRecord record = BookRecord::Parse(text);
        int index = FindInHistory(form, record.Path());
        if (index < 0) index = AddHistoryItem(form, text);
        BookRecord stored = BookRecord::Parse(form.menu.mFileList[index].tag);
        stored[Field::Marks] = JoinedMarks(stored[Field::Marks], record[Field::Marks]);
        form.menu.mFileList[index].tag = stored.ToText();
        SetHistoryCaption(form, index);
    }
    if (!records.empty()) SyncRemoveMenu(form, HistoryCount(form) - 1);
}

// The history index of the book to open, or -1.
int LoadHistory(MainForm& form, const std::vector<std::u16string>& records,
                const std::u16string& shown) {
    form.historyInFile = LoadSectionLines(*form.dataFile, HistorySection(form));
    const int firstFound = FillHistory(form, form.historyInFile);
    AddMissingRecords(form, records);
    if (!shown.empty()) return FindInHistory(form, shown);
    const std::u16string& commandLine = form.ports.launch.commandLine;
    if (commandLine.empty()) return firstFound;
    const int given = AddBook(form, commandLine, -1);
    return given < 0 ? firstFound : given;
}

// One reader's book does not stay on the screen of another.
void ShowNoBook(MainForm& form) {
    LeavePage(form);
    form.ports.textView->LoadPlainText(u"");
    form.ports.menuBar->Refresh(); // no bookmarks without a book
    UpdateWindowTitle(form);
}

void SwitchTo(MainForm& form, int index, const std::vector<std::u16string>& records = {},
              const std::u16string& shown = u"") {
    const FlagScope changing(form.ProfileChanging);
    form.menu.mProfileList[0].checked = true;
    MakeCurrent(form, index);
    SyncProfileDeleteMenu(form);
    RestorePlacement(form);
    LoadProfileOptions(form);
    form.menu.mBookmark[0].enabled = false;
    form.shownPath = u""; // what the view shows is another reader's
    const int book = LoadHistory(form, records, shown);
    if (book >= 0) mFileList_Click(form, book);
    if (!IsBookShown(form)) ShowNoBook(form);
}

// Without the data file there is nothing to switch to.
bool RefusedWhileUnread(MainForm& form) {
    if (!form.dataFile->IsUnread()) return false;
    form.toldTrouble.unread = false;
    TellDataFileTrouble(form, IniTrouble::Unread);
    return true;
}
} // namespace

void LoadProfileList(MainForm& form) {
    form.profilesInFile = LoadProfileNames(*form.dataFile);
    ListLines names = form.profilesInFile;
    if (names.empty()) names = {u"Default"};
    MenuTree& menu = form.menu;
    menu.mUser[0].tag = IniReadString(*form.dataFile, profileListSection, u"0");
    menu.mProfileList.items.resize(1);
    menu.mUserDeleteList.items.resize(1);
    menu.mProfileList[0].caption = menu.mUserDeleteList[0].caption = names.front();
    for (std::size_t i = 1; i < names.size(); ++i) {
        AddMenuItem(menu.mProfileList, names[i]);
        AddMenuItem(menu.mUserDeleteList, names[i]);
    }
}

void EnterProfile(MainForm& form, const std::vector<std::u16string>& records,
                  const std::u16string& shown) {
    const FlagScope switching(form.ProfileSwitching);
    SwitchTo(form, 0, records, shown);
    // A book that came to the top of a list that was not written meanwhile.
    const bool moved = !records.empty() || !form.ports.launch.commandLine.empty();
    if (moved && IsBookShown(form)) SaveHistoryList(form);
}

void mUser_Click(MainForm& form, int) {
    form.menu.mUserDelete[0].enabled = form.menu.mProfileList.Count() > 1;
}

void SyncProfileDeleteMenu(MainForm& form) {
    const MenuArray& list = form.menu.mProfileList;
    MenuArray& deleteList = form.menu.mUserDeleteList;
    for (int i = 0; i < list.Count(); ++i) {
        if (i == deleteList.Count()) AddMenuItem(deleteList);
        deleteList[i].caption = list[i].caption;
        deleteList[i].enabled = i != 0;
    }
    deleteList.items.resize(list.items.size());
}

void mProfileList_Click(MainForm& form, int index) {
    if (form.menu.mProfileList[index].checked || RefusedWhileUnread(form)) return;
    SwitchTo(form, index);
    // A book given at the start has come to the top of a list that was not written meanwhile.
    if (!form.ports.launch.commandLine.empty() && IsBookShown(form)) SaveHistoryList(form);
}

namespace {
// The answer's first line without its blanks.
std::u16string ProfileName(const std::u16string& answer) {
    std::u16string name = answer.substr(0, answer.find(u'\n'));
    std::erase_if(name, [](char16_t unit) { return unit == u' ' || unit == u'\r'; });
    return name;
}

// Sections of the data file are named after the profile: "\\" leads to those of its books, a "]"
// ends a section's name, and quotes around a value are not part of it.
bool IsSupportedName(const std::u16string& name) {
    const bool quoted = name.starts_with(u'"') || name.starts_with(u'\'');
    return !quoted && std::ranges::none_of(name, [](char16_t unit) {
        return unit == u'?' || unit == u'\\' || unit == u'[' || unit == u']' || unit < u' ';
    });
}

void RefuseName(MainForm& form, const std::u16string& reason) {
    Message message;
    message.text = reason;
    message.title = form.productTitle;
    message.icon = MessageIcon::Information;
    form.ports.dialogs->ShowMessage(message);
}

// The profile's place in the list; a new one is added at its end.
int FindOrAddProfile(MenuTree& menu, const std::u16string& name) {
    for (int i = 0; i < menu.mProfileList.Count(); ++i)
        if (EqualIgnoringCase(menu.mProfileList[i].caption, name)) return i;
    AddMenuItem(menu.mProfileList, name);
    AddMenuItem(menu.mUserDeleteList, name);
    return menu.mProfileList.Count() - 1;
}
} // namespace

void mUserNew_Click(MainForm& form, int) {
    if (RefusedWhileUnread(form)) return;
    const auto title = Replace(form.menu.mUserNew[0].caption, u"&", u"");
    const auto name = ProfileName(form.ports.dialogs->AskText(title, u"Enter new user name:"));
    if (!IsSupportedName(name))
        return RefuseName(form, u"You tried to use unsupported character(s).");
    if (EqualIgnoringCase(name, profileListSection)) // its settings would become profiles
        return RefuseName(form, u"This name is used by the program itself.");
    if (name.empty() || EqualIgnoringCase(name, form.menu.mUser[0].tag)) return;
    mProfileList_Click(form, FindOrAddProfile(form.menu, name));
}

void mUserDeleteList_Click(MainForm& form, int index) {
    if (RefusedWhileUnread(form)) return;
    if (!ConfirmLoss(form, u"All data of the profile will be lost.")) return;
    MenuArray& list = form.menu.mProfileList;
    list.items.erase(list.items.begin() + index);
    SyncProfileDeleteMenu(form);
    SaveProfileList(form);
}
