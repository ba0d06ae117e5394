// The names of the profiles in the data file: "0=Anna", the current one, "1=Default", ...
#pragma once

#include "datafile/ini_file.h"

#include <string_view>

// Of the data file.
constexpr std::u16string_view profileListSection = u"mProfileList";

// The names in the order of their keys, wherever in the section their lines stand; a line whose key
// is no number comes last. Each name once, ignoring case.
ListLines LoadProfileNames(IniFile&);

// Writes the names in this order. `inFile` is what the list held when it was last read or written
// here, and is what it holds afterwards: names that another program has added meanwhile stay.
void SaveProfileNames(IniFile&, const ListLines& names, ListLines& inFile);
