// Saving what the reader left: place and look of a book, into its record and the data file.
#pragma once

struct MainForm;

// Updates the record of history item `index` from the views and writes it. Index 0 is the shown
// book (nothing is done when none is shown); another index is a new record, which gets the present
// look but no position.
void SaveBookState(MainForm&, int index);
