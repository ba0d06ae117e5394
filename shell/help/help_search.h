// Finding words in the help.
#pragma once

#include "platform/help_window.h"
#include "shell/help/help_file.h"

#include <string_view>
#include <vector>

// The topics that hold the most of the words typed, best first. A word is found at the beginning of
// a word, whatever the case; in a title it counts most, then in a heading. The page of a finding is
// the topic's index.
std::vector<HelpFinding> SearchHelp(const HelpBook&, std::u16string_view typed);
