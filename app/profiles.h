// Profiles: each reader's own history, window place and options.
#pragma once

struct MainForm;

void mUser_Click(MainForm&, int);              // the Profile menu opens
void mProfileList_Click(MainForm&, int index); // switches to that profile
void SyncProfileDeleteMenu(MainForm&);         // the remove submenu mirrors the profile list
