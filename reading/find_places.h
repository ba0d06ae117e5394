// Places of a book found again in another text of it: an edited one, another edition, another kind.
#pragma once

#include "reading/place_words.h"

#include <functional>
#include <vector>

struct FoundPlace {
    TextPos position = 0;
    bool certain = false; // else as far along as it was, between what was found around it
};

// As many as `places`, in their order. `oldLength` is that of the text that they are from. The
// text is run through once, whatever the number of places; `shouldContinue` is asked meanwhile, and
// when it says no, nothing is certain.
std::vector<FoundPlace> FindPlaces(const TextSource& text, TextPos oldLength,
                                   const std::vector<KnownPlace>& places,
                                   const std::function<bool()>& shouldContinue);
