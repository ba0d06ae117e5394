// How a plain text reads in each charset that can be chosen for it, so that the reader sees which
// one is right.
#pragma once

#include "common/file_reader.h"
#include "formats/plain/plain_text.h"

#include <string>
#include <vector>

struct CharsetReading {
    int page = 0;        // utf8Page for UTF-8
    std::string name;    // ASCII
    std::u16string line; // one and the same of the text, as this charset decodes it; for display
    bool standsForScript = false; // of the charsets for its script the one to take
};

// Likeliest first. Of charsets for the same script that decode all bytes of the text alike only the
// first is in it, besides `presentPage`, in which the text is shown, and the pages of the scripts
// that a font has. Empty when the bytes leave
// nothing to choose: a byte-order mark, UTF-16 and its like, ASCII alone.
std::vector<CharsetReading> CharsetReadings(const FileReader& file, int systemPage,
                                            int presentPage);

// Whether the bytes themselves say how they are read, which no choice changes: a mark and its like.
bool HasMarkedForm(const FileReader& file);

// utf8Page and 0 are UTF-8.
PlainTextForm FormOfPage(int page);
