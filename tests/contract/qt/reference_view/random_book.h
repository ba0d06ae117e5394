// Texts of all kinds, made by chance.
#pragma once

#include "formats/document.h"
#include "tests/contract/qt/reference_view/random_numbers.h"

#include <string>

struct RandomBook {
    bool plain = true;
    std::string bytes;     // of a plain text
    Document document;     // of a rich one
    bool overlaps = false; // lines may stand so close that letters reach into others
    bool isLong = false;   // each layout of the whole takes long
};

// One of each kind in turn, by `number`.
RandomBook MakeBook(Random& random, int number);
