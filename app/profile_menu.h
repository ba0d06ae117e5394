// The Profile menu: each reader's own history, window place and options.
#pragma once

#include <string>
#include <vector>

struct MainForm;

// Fills the menu from the data file, at least with "Default", and sets the current name.
void LoadProfileList(MainForm&);

// The first switch into a profile, that of item 0. `records` are of books that were opened before
// the data file could be read: they come into its list where they are not in it. `shown` is the
// path of the one on the screen, or "": then the list, or the command line, says what is shown.
void EnterProfile(MainForm&, const std::vector<std::u16string>& records = {},
                  const std::u16string& shown = u"");

void mUser_Click(MainForm&, int);                 // the menu opens
void mUserNew_Click(MainForm&, int);              // asks for a name, and switches to that profile
void mUserDeleteList_Click(MainForm&, int index); // removes a name from the list; its data stays
void mProfileList_Click(MainForm&, int index);    // switches to that profile
void SyncProfileDeleteMenu(MainForm&);            // the remove submenu mirrors the profile list
