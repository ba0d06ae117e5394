// Find and find next, and the searches remembered for each book.
#pragma once

#include <string>

struct MainForm;

void mEditFind_Click(MainForm&, int); // asks for a text and finds it
void mEditNext_Click(MainForm&, int); // from behind the selection, once around the end

// The searches of the shown book, under its own section of the data file.
void LoadFindHistory(MainForm&);
// Nothing is written when there are none.
void SaveFindHistory(MainForm&, const std::u16string& recordKey);
