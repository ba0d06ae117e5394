// The scripts of fonts: Windows font character sets, by their usual names.
#pragma once

#include <span>

struct FontScript {
    int charset;
    const char* name;
    const char16_t* sample; // a few letters
};

std::span<const FontScript> FontScripts(); // in the order of a list to choose from
