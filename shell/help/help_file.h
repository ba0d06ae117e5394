// The help file: topics in a small markup, as docs/help-file.md describes it.
#pragma once

#include "formats/document.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

constexpr std::size_t maxHelpFileSize = 1 << 20; // bytes

struct HelpTopic {
    std::vector<std::string> ids; // by which messages and the program ask for it
    std::u16string title;
    Document page; // begins with the title as a paragraph of its own
};

struct HelpBook {
    std::vector<HelpTopic> topics; // at least one
};

// Nothing when the bytes are no whole help file.
std::optional<HelpBook> ParseHelpFile(std::string_view bytes);

// The index of the topic with this id; 0, the index of the help, when there is none.
int FindHelpTopic(const HelpBook&, std::string_view id);
