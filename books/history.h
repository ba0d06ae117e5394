// The history list: the books read before, most recent first, as items of the File menu.
#pragma once

#include "books/book_record.h"
#include "books/date_texts.h"
#include "common/menu_model.h"
#include "datafile/ini_file.h"
#include "platform/clock.h"
#include "platform/files.h"

#include <string>
#include <vector>

struct History {
    MenuArray& list;       // each item's tag is a record; item 0 alone without one: no books
    MenuArray& removeList; // the same books, in the submenu
    MenuItem& removeMenu;  // which opens that
    MenuItem& separator;   // above the list
    const Files& files;
    const Clock& clock;
    DateNames dateNames{}; // of the captions
    ListLines inFile{};    // as the data file held it when it was last read or written here

    int Count() const; // the items that hold a record
    BookRecord Record(int index) const { return BookRecord::Parse(list[index].tag); }
    void SetRecord(int index, const BookRecord& record) { list[index].tag = record.ToText(); }
};

std::u16string GetBookPath(const History&, int index); // "" for an item without a record

// The item whose record has this path, or -1. Names that differ only in case are one book when the
// file system says so.
int FindInHistory(const History&, const std::u16string& path);

// Rebuilds caption and enabled state of item `index` from its record.
void SetHistoryCaption(History&, int index);

// Makes both lists end at index `last`; -1 for an empty list.
void SyncRemoveMenu(History&, int last);

// Appends an item that holds `record`; returns its index. An empty list's item 0 is used first.
int AddHistoryItem(History&, const std::u16string& record);

// Moves record `index` to the top, the others keeping their order, and rebuilds the captions
// passed.
void MoveHistoryItemToTop(History&, int index);

void RemoveHistoryItem(History&, int index);
void RemoveMissingBooks(History&); // every record whose file is missing

// Replaces the whole list by these records. Returns the index of the first whose book exists, or
// -1.
int FillHistory(History&, const std::vector<std::u16string>& records);

// The sections of the data file for a profile's list, and for what a record has no field for. A
// book of the list whose name differs from another's in case only has a section of its own.
std::u16string HistorySection(const std::u16string& profile);
std::u16string BookSection(const History&, const std::u16string& profile,
                           const std::u16string& recordKey);

// Writes one record, or the whole list, merged with what another program has put there.
void SaveHistoryItem(History&, IniFile&, const std::u16string& profile, int index);
void SaveHistoryList(History&, IniFile&, const std::u16string& profile);
