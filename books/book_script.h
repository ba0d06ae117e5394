// In which charset a plain-text book is read: the one that the reader chose for it, else the one
// that its letters tell. A record's Charset number alone is no choice: a new record takes it over
// from the book that was shown before.
#pragma once

#include <string>

struct MainForm;
class BookRecord;

// The code page that the reader chose for the book, 0 for none. A record that nothing more is known
// of, by hand or by an older version, is read in the script of its Charset number.
int ChosenCodePage(const MainForm&, const BookRecord&);

// The reader chose it for the shown book.
void ChooseCodePage(MainForm&, int codePage);

// Keeps that nothing was chosen for a book whose record would look as if.
void KeepNothingChosen(MainForm&, const BookRecord&);

// After showing a book: what the guess says of its script goes into its record, so that the font
// dialog shows it and an older version reads the book alike.
void KeepGuessedScript(MainForm&);

// The font character set of the script that a code page is for; `present` when there is none.
int ScriptCharset(int codePage, int present);
