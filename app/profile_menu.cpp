#include "app/profile_menu.h"

#include "app/main_form.h"
#include "app/profiles.h"
#include "app/shown_book.h"
#include "common/flag_scope.h"
#include "common/menu_items.h"
#include "common/text.h"
#include "datafile/profile_list.h"

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

void EnterProfile(MainForm& form, const std::vector<std::u16string>& records,
                  const std::u16string& shown) {
    const FlagScope switching(form.ProfileSwitching);
    SwitchToProfile(form, 0, records, shown);
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

void mUser_Click(MainForm& form, int) {
    form.menu.mUserDelete[0].enabled = form.menu.mProfileList.Count() > 1;
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

// The profile's place in the list; a new one is added at its end.
int FindOrAddProfile(MenuTree& menu, const std::u16string& name) {
    for (int i = 0; i < menu.mProfileList.Count(); ++i)
        if (EqualIgnoringCase(menu.mProfileList[i].caption, name)) return i;
    AddMenuItem(menu.mProfileList, name);
    AddMenuItem(menu.mUserDeleteList, name);
    return menu.mProfileList.Count() - 1;
}

void Refuse(MainForm& form, const std::u16string& reason) {
    ShowPlainMessage(form.messages, MessageIcon::Information, MessageTitle::Product, reason);
}

// Without the data file there is nothing to switch to.
bool IsUnreadRefused(MainForm& form) {
    if (!form.dataFile->IsUnread()) return false;
    form.reportedTrouble.reported.erase(IniTrouble::Unread);
    ReportTrouble(form, IniTrouble::Unread);
    return true;
}
} // namespace

void mUserNew_Click(MainForm& form, int) {
    if (IsUnreadRefused(form)) return;
    const auto title = Replace(form.menu.mUserNew[0].caption, u"&", u"");
    const auto name = ProfileName(form.ports.dialogs->AskText(title, u"Enter new user name:"));
    if (!IsSupportedName(name)) return Refuse(form, u"You tried to use unsupported character(s).");
    if (EqualIgnoringCase(name, profileListSection)) // its settings would become profiles
        return Refuse(form, u"This name is used by the program itself.");
    if (name.empty() || EqualIgnoringCase(name, form.menu.mUser[0].tag)) return;
    mProfileList_Click(form, FindOrAddProfile(form.menu, name));
}

void mUserDeleteList_Click(MainForm& form, int index) {
    if (IsUnreadRefused(form)) return;
    if (!ConfirmLoss(form.messages, u"All data of the profile will be lost.")) return;
    MenuArray& list = form.menu.mProfileList;
    list.items.erase(list.items.begin() + index);
    SyncProfileDeleteMenu(form);
    SaveProfileList(form);
}

void mProfileList_Click(MainForm& form, int index) {
    if (!form.menu.mProfileList[index].checked && !IsUnreadRefused(form))
        SwitchToProfile(form, index);
}
