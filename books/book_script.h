// In which charset a plain-text book is read: the one that the reader chose for it, else the one
// that its bytes suggest. A record's Charset number alone is no choice: a new record takes it over
// from the book that was shown before.
#pragma once

#include "books/book_record.h"
#include "datafile/ini_file.h"

// The code page that the reader chose for the book, 0 for none. A record that nothing more is known
// of, by hand or by an older version, is read in the script of its Charset number. `section` is the
// book's own of the data file.
int ChosenCodePage(IniFile&, const std::u16string& section, const BookRecord&, int ansiCodePage);

// The reader chose it.
void StoreChosenCodePage(IniFile&, const std::u16string& section, int codePage);

// Records that nothing was chosen for a book whose record would look as if.
void StoreNothingChosen(IniFile&, const std::u16string& section, const BookRecord&,
                        int ansiCodePage);

// The font character set of the script that a code page is for; `present` when there is none.
int ScriptCharset(int codePage, int present);
