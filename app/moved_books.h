// Books that were moved, renamed or carried elsewhere: they keep their records.
#pragma once

#include <string>

struct BookFile;
class BookRecord;
struct BookSettings;
struct MainForm;

// The book of this file is not in the list. When it is one of the list whose file is gone, and that
// is the only one, the record becomes that of this file; returns its index, else -1. The file is
// read when there is something to compare it with.
int TakeOverMovedBook(MainForm&, BookFile&);

// One step of looking for the other books of a folder of which one has been found elsewhere.
void LookForMovedBooks(MainForm&, int maxBooks);

// After the list was read: the data file is not where it was when this list was last used, so its
// books are looked for at the same places beside it. Whether some were found.
bool FollowCarriedDataFile(MainForm&);

// Keeps where the data file is while the list of this profile is used.
void KeepPlaceOfDataFile(MainForm&);

// Keeps what the file of the shown page is recognised by.
void KeepPageFile(MainForm&, const BookRecord&, const BookSettings&);
