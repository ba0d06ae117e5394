// A data file that could not be read when the program started.
#pragma once

#include <string>

struct MainForm;

// Asked each second: when the file can be read by now, the program goes over to what it holds, as a
// start does. The book on the screen stays; books opened meanwhile are added to the list. Of a book
// that the list holds already the stored record counts, with the bookmarks made meanwhile.
void TakeUpLateDataFile(MainForm&);

// The bookmarks of a record with others added, by their starts; of two of one start the stored one.
std::u16string JoinedMarks(const std::u16string& stored, const std::u16string& added);
