// Bookmarks: the list lives in the Bookmark menu, each item's tag is "start,length".
#pragma once

#include <string>

struct MainForm;

// Fills the list from a record's bookmark field.
void LoadBookmarks(MainForm&, const std::u16string& marks);

// Rebuilds captions from tags, and stores the list in the record of the shown book; unless `noSave`
// its reading state is saved too. `keepUpTo` >= 0 first drops the items above that index.
void RefreshBookmarkMenu(MainForm&, int keepUpTo, bool noSave);
