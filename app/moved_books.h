// Books that were moved, renamed or carried elsewhere: they keep their records.
#pragma once

struct BookFile;
struct MainForm;

// The book of this file is not in the list. When it is one of the list whose file is gone, and that
// is the only one, the record becomes that of this file; returns its index, else -1. The file is
// read when there is something to compare it with.
int TakeOverMovedBook(MainForm&, BookFile&);

// One step of looking for the other books of a folder of which one has been found elsewhere.
void LookForMovedBooks(MainForm&, int maxBooks);
