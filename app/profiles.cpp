#include "app/profiles.h"

#include "app/book_state.h"
#include "app/carried_data_file.h"
#include "app/main_form.h"
#include "app/main_window.h"
#include "app/open_book.h"
#include "app/shown_book.h"
#include "common/flag_scope.h"
#include "common/menu_items.h"
#include "common/text.h"
#include "datafile/list_persistence.h"
#include "datafile/profile_list.h"
#include "shell/options.h"

#include <algorithm>

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

void SaveProfileList(MainForm& form) {
    ListLines names;
    MenuArray& list = form.menu.mProfileList;
    for (const MenuItem& profile : list.items)
        names.push_back(profile.caption);
    SaveProfileNames(*form.dataFile, names, form.profilesInFile);
    // Another program may have added some.
    for (std::size_t i = 0; i < form.profilesInFile.size(); ++i) {
        if (i == list.items.size()) AddMenuItem(list);
        list[i].caption = form.profilesInFile[i];
    }
    SyncProfileDeleteMenu(form);
}

namespace {
// Makes item `index` the current profile: the first of the list, the others keep their order.
void MakeCurrent(MainForm& form, int index) {
    MenuArray& list = form.menu.mProfileList;
    std::u16string& current = form.menu.mUser[0].tag;
    if (EqualIgnoringCase(list[index].caption, current)) return;
    if (!current.empty())
        SaveWindowPlacement(form.placement, *form.dataFile, current, *form.ports.window);
    current = list[index].caption;
    for (int k = index; k >= 1; --k)
        list[k].caption = list[k - 1].caption;
    list[0].caption = current;
    SaveProfileList(form);
}

void RestorePlacement(MainForm& form) {
    Window& window = *form.ports.window;
    form.placement = LoadWindowPlacement(*form.dataFile, CurrentProfile(form), window);
    const bool normal = window.State() == WindowState::Normal && !window.IsFullScreen();
    if (normal) MoveToPlacement(form.placement, window);
    LayOutForm(form);
}

// Books that were opened before the list could be read.
void AddMissingRecords(History& history, const std::vector<std::u16string>& records) {
    for (const std::u16string& text : records) {
        const BookRecord record = BookRecord::Parse(text);
        int index = FindInHistory(history, record.Path());
        if (index < 0) index = AddHistoryItem(history, text);
        BookRecord stored = history.Record(index);
        stored[Field::Marks] = JoinedMarks(stored[Field::Marks], record[Field::Marks]);
        history.SetRecord(index, stored);
        SetHistoryCaption(history, index);
    }
    if (!records.empty()) SyncRemoveMenu(history, history.Count() - 1);
}

int FirstFound(const History& history) {
    const auto found = std::ranges::find(history.list.items, true, &MenuItem::enabled);
    return found == history.list.items.end() ? -1
                                             : static_cast<int>(found - history.list.items.begin());
}

// The book to open.
ListedBook LoadHistory(MainForm& form, const std::vector<std::u16string>& records,
                       const std::u16string& shown) {
    History& history = form.history;
    history.inFile = LoadSectionLines(*form.dataFile, HistorySection(CurrentProfile(form)));
    int firstFound = FillHistory(history, history.inFile);
    form.moved.reset();
    if (FollowCarriedDataFile(form)) firstFound = FirstFound(history);
    AddMissingRecords(history, records);
    if (!shown.empty()) return {FindInHistory(history, shown)};
    const std::u16string& commandLine = form.ports.launch.commandLine;
    if (commandLine.empty()) return {firstFound};
    ListedBook given = AddBook(form, commandLine);
    return given.index < 0 ? ListedBook{firstFound} : std::move(given);
}

// One reader's book does not stay on the screen of another.
void ShowNoBook(MainForm& form) {
    LeavePage(form);
    form.ports.textView->LoadPlainText(u"");
    form.ports.menuBar->Refresh(); // no bookmarks without a book
    UpdateWindowTitle(form);
}
} // namespace

void SwitchToProfile(MainForm& form, int index, const std::vector<std::u16string>& records,
                     const std::u16string& shown) {
    {
        const FlagScope changing(form.ProfileChanging);
        form.menu.mProfileList[0].checked = true;
        MakeCurrent(form, index);
        SyncProfileDeleteMenu(form);
        RestorePlacement(form);
        LoadProfileOptions(form.menu.mOptionsTitle, form.menu.mOptionsFileColor[0], *form.dataFile,
                           CurrentProfile(form));
        SetColumn(*form.ports.textView, form.menu.mViewColumn[0],
                  LoadColumnOption(*form.dataFile, CurrentProfile(form)));
        form.bookmarks.menu.enabled = false;
        form.book.path = u""; // what the view shows is another reader's
        ListedBook book = LoadHistory(form, records, shown);
        if (book.index > 0 || (book.index == 0 && !IsBookShown(form)))
            ShowBook(form, std::move(book));
        if (!IsBookShown(form)) ShowNoBook(form);
    }
    // A book that came to the top of a list that was not written meanwhile.
    const bool moved = !records.empty() || !form.ports.launch.commandLine.empty();
    if (moved && IsBookShown(form)) SaveHistoryList(form);
}

void EnterProfile(MainForm& form, const std::vector<std::u16string>& records,
                  const std::u16string& shown) {
    const FlagScope switching(form.ProfileSwitching);
    SwitchToProfile(form, 0, records, shown);
}
