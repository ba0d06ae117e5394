// Whether the broken lines of a book flow on: kept in its own section of the data file.
#pragma once

#include "datafile/ini_file.h"

#include <string>

bool LoadUnwrapped(IniFile&, const std::u16string& section);
void SaveUnwrapped(IniFile&, const std::u16string& section, bool on);
