// Whole lists kept in sections of the data file, one line per item: "index=value", counted from 0.
#pragma once

#include "common/menu_model.h"
#include "datafile/ini_file.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

inline constexpr std::u16string_view lineBreak = u"\r\n";

struct ListItem {
    std::u16string text;
    std::int32_t data = 0;
    bool operator==(const ListItem&) const = default;
};

// Replace the whole section in one step and keep the file's last-write time: saving a list does not
// make the file look changed. A list of nothing leaves an empty section. A section may be of any
// length.
void SaveListToSection(IniFile&, std::u16string_view section,
                       const std::vector<std::u16string>& texts);
// "index=text", separator, data.
void SaveListToSection(IniFile&, std::u16string_view section, const std::vector<ListItem>&,
                       std::u16string_view separator);
// The captions without the separator items; with a `separator`, it and the tag follow where there
// is a tag.
void SaveListToSection(IniFile&, std::u16string_view section, const MenuArray&,
                       std::u16string_view separator = u"");
// The lines of a text; one that has a "=" is the whole line of the section, any other gets its
// "index=". The empty text has no lines.
void SaveListToSection(IniFile&, std::u16string_view section, std::u16string_view text,
                       std::u16string_view lineSeparator = lineBreak);

// The values (what follows the first "=" of a line) joined by `lineSeparator`; `target`, if any,
// receives them too. All are empty when there is no such section.
std::u16string LoadListFromSection(IniFile&, std::u16string_view section,
                                   std::vector<std::u16string>* target = nullptr,
                                   std::u16string_view lineSeparator = lineBreak);
// The same; each value is split at its last `separator` into text and data (0 when there is none).
std::u16string LoadListFromSection(IniFile&, std::u16string_view section,
                                   std::vector<ListItem>& target, std::u16string_view separator);

// The lines themselves, "key=value".
std::vector<std::u16string> LoadSectionLines(IniFile&, std::u16string_view section);

// As the functions above on a text and a list, except that saving sets the file's last-write time.
void SaveSectionText(IniFile&, std::u16string_view section, std::u16string_view text,
                     std::u16string_view lineSeparator = lineBreak);
void SaveSectionText(IniFile&, std::u16string_view section,
                     const std::vector<std::u16string>& texts);
std::u16string LoadSectionText(IniFile&, std::u16string_view section,
                               std::vector<std::u16string>* target = nullptr,
                               std::u16string_view lineSeparator = lineBreak);
