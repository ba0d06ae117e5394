// By what the page of a book is shown: kept in its own section of the data file.
#pragma once

#include "datafile/ini_file.h"
#include "platform/html_view.h"

#include <string>

// `Browser` for a book of which nothing was chosen.
PageEngine LoadPageEngine(IniFile&, const std::u16string& section);
void SavePageEngine(IniFile&, const std::u16string& section, PageEngine);
