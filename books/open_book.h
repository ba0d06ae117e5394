// Opening a book: from a path, or from the history list.
#pragma once

#include <string>
#include <vector>

struct MainForm;

// Opens the book at a full path. `kind` is a BookKind, or KindFromFile (-1). Of a book that cannot
// be opened the user is told, and nothing changes.
void OpenBook(MainForm&, const std::u16string& path, int kind);

// The history index of `path`, added to the list when it is new, put right when its kind is another
// one, without showing it; -1 (said so to the user) when it cannot be opened.
int AddBook(MainForm&, const std::u16string& path, int kind);

void mFileList_Click(MainForm&, int index); // shows the book of a history item
void mFileOpen_Click(MainForm&, int);
void rtMain_FilesDropped(MainForm&, const std::vector<std::u16string>& paths);

// The folder part of `path` to open a dialog in; `fallback` when there is none, the root when it is
// gone.
std::u16string InitialFolder(const MainForm&, std::u16string path, const std::u16string& fallback);
