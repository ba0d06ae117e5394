#include "app/profiles.h"

#include "app/main_form.h"
#include "books/history_list.h"
#include "books/open_book.h"
#include "common/flag_scope.h"
#include "common/list_persistence.h"
#include "common/menu_items.h"
#include "common/text.h"
#include "shell/options.h"
#include "shell/window_title.h"

namespace {
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
    SaveListToSection(*form.dataFile, u"mProfileList", list);
}

void RestorePlacement(MainForm& form) {
    form.placement = LoadWindowPlacement(form);
    if (form.ports.window->State() == WindowState::Normal) MoveToPlacement(form);
    LayOutForm(form);
}

// The history index of the book to open, or -1.
int LoadHistory(MainForm& form) {
    const int firstFound =
        FillHistory(form, LoadSectionLines(*form.dataFile, HistorySection(form)));
    const std::u16string& commandLine = form.ports.launch.commandLine;
    if (commandLine.empty()) return firstFound;
    const int given = AddBook(form, commandLine, -1);
    return given < 0 ? firstFound : given;
}
// One reader's book does not stay on the screen of another.
void ShowNoBook(MainForm& form) {
    form.ports.textView->LoadPlainText(u"");
    UpdateWindowTitle(form);
}
} // namespace

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
    if (form.menu.mProfileList[index].checked) return;
    const FlagScope changing(form.ProfileChanging);
    form.menu.mProfileList[0].checked = true;
    MakeCurrent(form, index);
    SyncProfileDeleteMenu(form);
    RestorePlacement(form);
    LoadProfileOptions(form);
    form.menu.mBookmark[0].enabled = false;
    const int book = LoadHistory(form);
    if (book >= 0) mFileList_Click(form, book);
    if (!IsBookShown(form)) ShowNoBook(form);
}
