// The place itself, between the two letters that it was found between.
#pragma once

#include "reading/place_words.h"

// `from` is just after the letter before it and `to` at the one after it: what is there now may
// not be what was there when `words` were taken.
TextPos PlaceInGap(const TextSource&, TextPos from, TextPos to, const PlaceWords& words);
