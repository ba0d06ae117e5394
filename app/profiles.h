// Profiles: each reader's own history, window place and options.
#pragma once

struct MainForm;

void mUser_Click(MainForm&, int);                 // the Profile menu opens
void mProfileList_Click(MainForm&, int index);    // switches to that profile
void mUserNew_Click(MainForm&, int);              // asks for a name, and switches to that profile
void mUserDeleteList_Click(MainForm&, int index); // takes a name off the list; its data stays
void SyncProfileDeleteMenu(MainForm&);            // the remove submenu mirrors the profile list
