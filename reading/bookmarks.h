// Bookmarks: the list lives in the Bookmark menu, each item's tag is "start,length".
#pragma once

#include <string>

struct MainForm;

// Fills the list from a record's bookmark field.
void LoadBookmarks(MainForm&, const std::u16string& marks);

// Rebuilds captions from tags, and stores the list in the record of the shown book; unless `noSave`
// its reading state is saved too. `keepUpTo` >= 0 first drops the items above that index.
void RefreshBookmarkMenu(MainForm&, int keepUpTo, bool noSave);

void mBookmark_Click(MainForm&, int); // the Bookmark menu opens
void mBookmarkNew_Click(MainForm&, int);
void mBookmarkNext_Click(MainForm&, int);
void mBookmarkPrev_Click(MainForm&, int);
void mBookmarkLast_Click(MainForm&, int);
void mBookmarkClearAll_Click(MainForm&, int);
void mBookmarkDeleteList_Click(MainForm&, int index);
void mBookmarkList_Click(MainForm&, int index); // goes to the mark
