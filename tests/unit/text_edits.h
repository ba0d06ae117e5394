// Random books, what editors do to them, and whether places in them are found again. Each unit of a
// text keeps a number of its own, so that it is known where it went.
#pragma once

#include "common/geometry.h"

#include <random>
#include <string>
#include <vector>

struct NumberedUnit {
    char16_t unit = 0;
    int number = -1; // -1: not in the text before
};
using NumberedText = std::vector<NumberedUnit>;

std::u16string UnitsOf(const NumberedText&);
NumberedText Numbered(const std::u16string&);

// Sentences in paragraphs with a blank line between them, in lines of some 70 units; some
// paragraphs come again, as refrains do.
std::u16string RandomBook(std::mt19937&, int paragraphs);

struct EditKind {
    const char* name;
    void (*apply)(NumberedText&, std::mt19937&);
};
const std::vector<EditKind>& EditKinds();

struct PlaceResult {
    bool survived = false; // the place's character and the letters beside it
    bool exact = false, certain = false;
    bool astray = false; // said to be certain, in another paragraph than the right one
};

// `count` random places of the text before, found in the text after.
std::vector<PlaceResult> TryPlaces(const std::u16string& before, const NumberedText& after,
                                   int count, std::mt19937&);

struct PlaceTally {
    int places = 0, survived = 0, exact = 0, certain = 0, astray = 0;
    void Add(const std::vector<PlaceResult>&);
};
