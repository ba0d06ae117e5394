// The Profile menu: each reader's own history, window place and options.
#pragma once

struct MainForm;

void mUser_Click(MainForm&, int);                 // the menu opens
void mUserNew_Click(MainForm&, int);              // asks for a name, and switches to that profile
void mUserDeleteList_Click(MainForm&, int index); // removes a name from the list; its data stays
void mProfileList_Click(MainForm&, int index);    // switches to that profile
