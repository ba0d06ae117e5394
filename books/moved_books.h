// Books of the list whose files are found in another place.
#pragma once

#include "books/history.h"
#include "reading/text_fingerprint.h"

#include <string>
#include <string_view>

// A folder and where it is now, without what both have in common at the end: of one that was moved
// or renamed, and of a drive that has another letter or mount point. Each in the form of its
// system.
struct FolderMove {
    std::u16string from, to;
};

FolderMove MoveOf(std::u16string_view fromFolder, std::u16string_view toFolder);

// Where a file is after the move; "" for one that was not in that folder.
std::u16string PathAfter(const FolderMove&, std::u16string_view path);

// From now on record `index` and all that the data file keeps of its book are of the file at
// `path`. The list is to be saved.
void MoveBook(History&, IniFile&, const std::u16string& profile, int index,
              const std::u16string& path);
