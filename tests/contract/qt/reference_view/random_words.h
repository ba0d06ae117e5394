// Words of all scripts and their lines, made by chance.
#pragma once

#include "tests/contract/qt/reference_view/random_numbers.h"

#include <string>

// Some words of one kind, with tabs as often as one in `tabs` blanks.
std::u16string RandomLine(Random& random, int maxWords, int tabs);
std::u16string RandomLines(Random& random, int count, int maxWords, int tabs);
std::u16string OneLongLine(Random& random); // of many thousand characters, between short ones
