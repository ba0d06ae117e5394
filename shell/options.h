// The options that the data file keeps: title mode, colours of rich-text books, external editors.
#pragma once

#include "common/menu_model.h"
#include "datafile/ini_file.h"
#include "platform/files.h"
#include "platform/shell.h"
#include "platform/version_info.h"

#include <string>

// Makes `path` the editor of this kind of books, and shows its description in the item's caption.
void SetEditorItem(MenuArray& editors, int kind, const std::u16string& path, const VersionInfo&,
                   char16_t separator);

// Those of all profiles, one for each kind of book. `fallback` edits plain text where none is
// chosen.
void LoadEditors(MenuArray& editors, IniFile&, const std::u16string& fallback, const VersionInfo&,
                 char16_t separator);
void SaveEditor(IniFile&, int kind, const std::u16string& path);

// Title mode (an index, checked) and colours of a profile.
void LoadProfileOptions(MenuArray& title, MenuItem& fileColor, IniFile&,
                        const std::u16string& profile);
void SaveTitleOption(IniFile&, const std::u16string& profile, int index);
void SaveFileColorOption(IniFile&, const std::u16string& profile, bool on);

// Whether the texts of a profile stand in a column: until it says otherwise, they do.
bool LoadColumnOption(IniFile&, const std::u16string& profile);
void SaveColumnOption(IniFile&, const std::u16string& profile, bool on);
