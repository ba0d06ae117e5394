// The help window and the file that it shows.
#pragma once

#include "platform/files.h"

#include <string>

struct MainForm;

// Beside the program; where there is none and an installation keeps one in its shared folder,
// there.
std::u16string FindHelpFile(const Files&, const std::u16string& besideProgram,
                            const std::u16string& sharedFolder);

// Opens the help at the topic with this id, at its index when no topic has it. A help file that is
// missing or damaged is told.
void OpenHelp(MainForm&, const std::string& topic);

void mHelpTopics_Click(MainForm&, int);
