// Random texts of all kinds.
#pragma once

#include "formats/document.h"
#include "tests/random_numbers.h"

#include <string>

struct RandomBook {
    bool plain = true;
    std::string bytes;     // of a plain text
    Document document;     // of a rich text
    bool overlaps = false; // lines may overlap
    bool isLong = false;   // the reference layout is slow
};

// The kinds alternate by `number`.
RandomBook MakeBook(Random& random, int number);

// A rich text, with or without tables and pictures: rich_book.cpp.
RandomBook MakeRichBook(Random& random, bool tables, bool pictures);
