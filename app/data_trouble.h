// Telling the user what keeps the program from its data file.
#pragma once

#include "common/ini_file.h"

#include <string>

struct MainForm;

// What the user has been told in this run; each once.
struct ToldTrouble {
    bool unread = false, notRead = false, notWritten = false, otherUsers = false;
    int failedWrites = 0; // seconds in which what had to be written could not be
};

// One message, if the user has not been told of this.
void TellDataFileTrouble(MainForm&, IniTrouble);

// Asked each second. What could not be written is tried again for some seconds, because other
// programs hold a file for a moment; then the user is told.
void WatchDataFile(MainForm&);

// The data file beside the program belongs to another user; a file of one's own is used, and so far
// there is none.
void TellOtherUsersDataFile(MainForm&, const std::u16string& path);
