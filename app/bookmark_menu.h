// The Bookmark menu, and the list in it.
#pragma once

#include <string>

struct MainForm;

// Fills the list from a record's bookmark field.
void LoadBookmarks(MainForm&, const std::u16string& marks);

// After a change of the list: captions from the places, and the record of the shown book.
void RefreshBookmarkMenu(MainForm&);

void mBookmark_Click(MainForm&, int); // the menu opens
void mBookmarkNew_Click(MainForm&, int);
void mBookmarkNext_Click(MainForm&, int);
void mBookmarkPrev_Click(MainForm&, int);
void mBookmarkLast_Click(MainForm&, int);
void mBookmarkClearAll_Click(MainForm&, int);
void mBookmarkDeleteList_Click(MainForm&, int index);
void mBookmarkList_Click(MainForm&, int index); // goes to the mark
