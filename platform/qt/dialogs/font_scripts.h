// Windows font character sets by the usual names of their scripts.
#pragma once

#include <span>

struct FontScript {
    int charset;
    const char* name;
    const char16_t* sample; // a few characters
};

std::span<const FontScript> FontScripts(); // in display order
