// The data file of the running program, and the messages about it.
#pragma once

#include "datafile/ini_file.h"

#include <memory>
#include <string>

struct MainForm;

std::unique_ptr<IniFile> OpenDataFile(MainForm&);

// Reads it for the first time. A file that another program holds just now, as backup, sync and
// virus scanners do, is tried again for a while.
void ReadDataFile(MainForm&);
// The same for what has to be written when the program ends; what could not be is reported.
void RetryWritingDataFile(MainForm&);

// What start-up found out about the file, in one message each, when the window is there.
// `otherUsersFile` is the one beside the program when it belongs to another user, or "".
void ReportStartTrouble(MainForm&, const std::u16string& otherUsersFile);

// One message, unless there has been one about this.
void ReportTrouble(MainForm&, IniTrouble);

// Called each second. What could not be written is tried again for some seconds, because other
// programs hold a file for a moment; then the user is told.
void WatchDataFile(MainForm&);

// Called each second: when a file that could not be read at the start can be read by now, the
// program goes over to what it holds, as a start does. The book on the screen stays; books opened
// meanwhile are added to the list. Of a book that the list holds already the stored record counts,
// with the bookmarks made meanwhile.
void AdoptLateDataFile(MainForm&);
