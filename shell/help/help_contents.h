// The help file as the help window shows it.
#pragma once

#include "platform/files.h"
#include "platform/help_window.h"

#include <string>
#include <string_view>

// Beside the program; where there is none and an installation keeps one in its shared folder,
// there.
std::u16string FindHelpFile(const Files&, const std::u16string& besideProgram,
                            const std::u16string& sharedFolder);

struct HelpAtTopic {
    HelpContents contents;
    int page = 0;
    std::u16string problem; // what the user is told when there is no help to show; "" for none
};

// The help of the file at `path`, at the topic with this id; at its index when no topic has it.
HelpAtTopic ReadHelp(const Files&, const std::u16string& path, std::string_view topic,
                     const std::u16string& windowTitle);
