// Opening a book: from a path, into the list and into the view.
#pragma once

#include "books/book_kind.h"

#include <string>

struct MainForm;

// Opens the book at a full path; its kind is recognised from the file when none is requested. Of a
// book that cannot be opened the user is told, and nothing changes.
void OpenBook(MainForm&, const std::u16string& path, RequestedKind = std::nullopt);

// The history index of `path`, added to the list when it is new, put right when its kind is another
// one, without showing it; -1 (the user has been told) when it cannot be opened.
int AddBook(MainForm&, const std::u16string& path, RequestedKind = std::nullopt);

// Shows the book of history item `index`, which comes to the top, also when it is in the view
// already. Of one that cannot be read the user is told and the book on the screen stays.
void ShowBook(MainForm&, int index);

// Reads the shown book again, and keeps its place.
void ReloadBook(MainForm&);

// No book is shown from now on, or one in the text view.
void LeavePage(MainForm&);
