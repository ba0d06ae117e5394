#include "app/profile_menu.h"

#include "app/data_file.h"
#include "app/main_form.h"
#include "app/profiles.h"
#include "app/shown_book.h"
#include "common/menu_items.h"
#include "common/text.h"
#include "datafile/profile_list.h"

#include <algorithm>

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
bool RefuseWhileUnread(MainForm& form) {
    if (!form.dataFile->IsUnread()) return false;
    form.reportedTrouble.reported.erase(IniTrouble::Unread);
    ReportTrouble(form, IniTrouble::Unread);
    return true;
}
} // namespace

void mUserNew_Click(MainForm& form, int) {
    if (RefuseWhileUnread(form)) return;
    const auto title = PlainCaption(form.menu.mUserNew[0]);
    const auto name = ProfileName(form.ports.dialogs->AskText(title, u"Enter new user name:"));
    if (!IsSupportedName(name)) return Refuse(form, u"You tried to use unsupported character(s).");
    if (EqualIgnoringCase(name, profileListSection)) // its settings would become profiles
        return Refuse(form, u"This name is used by the program itself.");
    if (name.empty() || EqualIgnoringCase(name, form.menu.mUser[0].tag)) return;
    mProfileList_Click(form, FindOrAddProfile(form.menu, name));
}

void mUserDeleteList_Click(MainForm& form, int index) {
    if (RefuseWhileUnread(form)) return;
    if (!ConfirmLoss(form.messages, u"All data of the profile will be lost.")) return;
    MenuArray& list = form.menu.mProfileList;
    list.items.erase(list.items.begin() + index);
    SyncProfileDeleteMenu(form);
    SaveProfileList(form);
}

void mProfileList_Click(MainForm& form, int index) {
    if (!form.menu.mProfileList[index].checked && !RefuseWhileUnread(form))
        SwitchToProfile(form, index);
}
