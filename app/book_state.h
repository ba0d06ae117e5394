// Saving what the reader left: place and format of a book, into its record and the data file.
#pragma once

class BookRecord;
struct MainForm;

// Updates the record of history item `index` from the views and writes it. Index 0 is the shown
// book; nothing is done when the view shows none, or one that is not in the list any more. The
// record of another index gets the present format but no position.
void SaveBookState(MainForm&, int index);

// The same for a record just made: the present format and no position, at any index.
void SaveNewBookState(MainForm&, int index);

// Font, wrapping, alignment and text colour as they are in the text view.
void StorePresentFormat(const MainForm&, BookRecord&);

// Writes the list, or one record, as they are.
void SaveHistoryList(MainForm&);
void SaveHistoryItem(MainForm&, int index);
