// The history list: the books read before, most recent first, as items of the File menu.
#pragma once

#include <string>
#include <string_view>
#include <vector>

struct MainForm;

// Rebuilds caption and enabled state of history item `index` from its record.
void SetHistoryCaption(MainForm&, int index);

// Makes the history and the remove submenu end at index `last`; -1 for an empty list.
void SyncRemoveMenu(MainForm&, int last);

std::u16string GetBookPath(const MainForm&, int index); // "" for an item without a record

// Whether history item 0 stands for the book in the view, and is not just the first of the list.
bool IsBookShown(const MainForm&);

// Whether its record is that of the book in the view. Not so once that book has been taken off the
// list: item 0 is then its neighbour, whose place and look are not to be seen.
bool IsShownBookListed(const MainForm&);

// The items that hold a record.
int HistoryCount(const MainForm&);

// Appends an item that holds `record`; returns its index. An empty list's item 0 is used first.
int AddHistoryItem(MainForm&, const std::u16string& record);

// Moves record `index` to the top, the others keeping their order, and rebuilds the captions
// passed.
void MoveHistoryItemToTop(MainForm&, int index);

// Replaces the whole list by these records. Returns the index of the first whose book exists, or
// -1.
int FillHistory(MainForm&, const std::vector<std::u16string>& records);

// The item whose record has this path, or -1. Names that differ only in case are one book when the
// file system says so.
int FindInHistory(const MainForm&, const std::u16string& path);

// Writes one record, or the whole list, to the profile's history section of the data file.
void SaveHistoryItem(MainForm&, int index);
void SaveHistoryList(MainForm&);

std::u16string HistorySection(const MainForm&);

// The section of the data file for what a record has no field for.
std::u16string BookSection(const MainForm&, const std::u16string& recordKey);

void mFile_Click(MainForm&, int); // the File menu opens
