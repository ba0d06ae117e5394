// In which charset a plain-text book is read: the one that the reader chose for it, else the one
// that its bytes suggest. A record's Charset number alone is no choice: a new record takes it over
// from the book that was shown before.
#pragma once

#include "books/book_record.h"
#include "books/book_settings.h"

struct ChosenCharset {
    int codePage = 0;   // 0: nothing was chosen
    bool exact = false; // this page; else any charset for the script of this page of Windows
};

// What the reader chose for the book. A record that nothing more is known of, by hand or by an
// older version, is read in the script of its Charset number.
ChosenCharset CharsetChosenFor(const BookSettings&, const BookRecord&, int ansiCodePage);

// The reader chose just this one.
void StoreChosenCodePage(const BookSettings&, int codePage);

// Records that nothing was chosen for a book whose record would look as if.
void StoreNothingChosen(const BookSettings&, const BookRecord&, int ansiCodePage);

// The font character set of the script that a code page is for; `present` when that is for it, too,
// or when there is none.
int ScriptCharset(int codePage, int present);

// The one that stands for just this code page, else as above; -1 when there is none.
int FontCharsetOf(int codePage);
