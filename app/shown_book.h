// Questions about the book in the view, which every command asks.
#pragma once

#include "books/book_record.h"
#include "books/book_settings.h"

#include <cstdint>
#include <string>
#include <string_view>

struct MainForm;

const std::u16string& CurrentProfile(const MainForm&);
// Of the current profile; of a book by its record's key.
BookSettings SettingsOf(const MainForm&, const std::u16string& recordKey);
BookSettings SettingsOf(const MainForm&, const BookRecord&);

// Whether history item 0 stands for the book in the view, and is not just the first of the list:
// its check mark says so.
bool IsBookShown(const MainForm&);

// Whether its record is that of the book in the view. Not so once that book has been taken off the
// list: item 0 is then its neighbour, whose place and format are not to be shown.
bool IsShownBookListed(const MainForm&);

// From now on item 0 stands for no book in the view; its next click shows it.
void ForgetShownBook(MainForm&);

bool CanShowPages(const MainForm&); // this front has an HTML view that works
bool IsPageShown(const MainForm&);  // the shown book is an HTML book, loaded or not
bool HasPageBody(const MainForm&);  // and its document is there

// To screen readers only, by the view that is shown.
void Announce(MainForm&, std::u16string_view text);

// Before the page is left: lets it settle, so that neither its size nor its place is lost. Waits a
// bounded time; false when the window was closed meanwhile.
bool SettlePage(MainForm&);

// The largest file, in bytes, whose plain text the view shows.
std::uint64_t MaxPlainText(const MainForm&);
