// Switching between profiles.
#pragma once

#include <string>
#include <vector>

struct MainForm;

// Makes the profile of item `index` the current one: its window place, options and history, and its
// last book. See EnterProfile for `records` and `shown`.
void SwitchToProfile(MainForm&, int index, const std::vector<std::u16string>& records = {},
                     const std::u16string& shown = u"");

// Writes the names in the menu, and shows there what another program has added.
void SaveProfileList(MainForm&);
