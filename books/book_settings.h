// What the data file keeps of one book beside its record, in a section of the book's own.
#pragma once

#include "datafile/ini_file.h"
#include "platform/html_view.h"

#include <string>
#include <string_view>
#include <vector>

struct BookSettings {
    IniFile& file;
    std::u16string section;

    std::u16string Read(std::u16string_view key) const { return IniReadString(file, section, key); }
    void Write(std::u16string_view key, std::u16string_view value) const {
        IniWriteString(file, section, key, value);
    }
};

// Whether the broken lines of a text flow on.
bool LoadUnwrapped(const BookSettings&);
void SaveUnwrapped(const BookSettings&, bool on);

// By what a page is shown; `Browser` for a book of which nothing was chosen.
PageEngine LoadPageEngine(const BookSettings&);
void SavePageEngine(const BookSettings&, PageEngine);

// The texts that were searched in the book, newest first.
std::vector<std::u16string> LoadSearches(const BookSettings&);
void SaveSearches(const BookSettings&, const std::vector<std::u16string>& searches);
