// The list of profiles, and switching between them.
#pragma once

#include <string>
#include <vector>

struct MainForm;

// Fills the Profile menu from the data file, at least with "Default", and sets the current name.
void LoadProfileList(MainForm&);
// Writes the names in the menu, and shows there what another program has added.
void SaveProfileList(MainForm&);
void SyncProfileDeleteMenu(MainForm&); // the remove submenu mirrors the profile list

// Makes the profile of item `index` the current one: its window place, options and history, and its
// last book. `records` are of books that were opened before the data file could be read: they come
// into its list where they are not in it. `shown` is the path of the one on the screen, or "": then
// the list, or the command line, says what is shown.
void SwitchToProfile(MainForm&, int index, const std::vector<std::u16string>& records = {},
                     const std::u16string& shown = u"");

// The first switch into a profile, that of item 0.
void EnterProfile(MainForm&, const std::vector<std::u16string>& records = {},
                  const std::u16string& shown = u"");
