// Opening a book: from a path, into the list and into the view.
#pragma once

#include "books/book_file.h"
#include "books/book_kind.h"

#include <optional>
#include <string>

struct MainForm;

// Opens the book at a full path; its kind is recognised from the file when none is requested. Of a
// book that cannot be opened the user is told, and nothing changes.
void OpenBook(MainForm&, const std::u16string& path, RequestedKind = std::nullopt);

// A book of the list, and its file where that has been opened.
struct ListedBook {
    int index = -1; // of the history; -1 for none
    std::optional<BookFile> file{};
};

// The book at `path`, added to the list when it is new, put right when its kind is another one,
// without showing it; none (the user has been told) when it cannot be opened.
ListedBook AddBook(MainForm&, const std::u16string& path, RequestedKind = std::nullopt);

// Shows this book, which comes to the top, also when it is in the view already. Of one that cannot
// be read the user is told and the book on the screen stays.
void ShowBook(MainForm&, ListedBook);
inline void ShowBook(MainForm& form, int index) {
    ShowBook(form, ListedBook{index});
}

// The file of the shown book as it is now; and that shown instead, at the same place.
BookFile OpenShownBookFile(const MainForm&);
void ReloadBook(MainForm&, BookFile);

// No book is shown from now on, or one in the text view.
void LeavePage(MainForm&);
