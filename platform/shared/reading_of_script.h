// Which reading of a text a font dialog selects with a script.
#pragma once

#include "platform/dialogs.h"

// The one that stands for the font character set, else the first of it; -1 for none.
inline int ReadingOfScript(const std::vector<TextReading>& readings, int charset) {
    int found = -1;
    for (std::size_t i = 0; i < readings.size(); ++i) {
        if (readings[i].charset != charset) continue;
        if (found < 0) found = static_cast<int>(i);
        if (readings[i].standsForScript) return static_cast<int>(i);
    }
    return found;
}
