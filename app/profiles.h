// Profiles: each reader's own history, window place and options.
#pragma once

#include <string_view>

struct MainForm;

// Of the data file: the names of the profiles, the current one first.
constexpr std::u16string_view profileListSection = u"mProfileList";

void mUser_Click(MainForm&, int);                 // the Profile menu opens
void mProfileList_Click(MainForm&, int index);    // switches to that profile
void mUserNew_Click(MainForm&, int);              // asks for a name, and switches to that profile
void mUserDeleteList_Click(MainForm&, int index); // takes a name off the list; its data stays
void SyncProfileDeleteMenu(MainForm&);            // the remove submenu mirrors the profile list
