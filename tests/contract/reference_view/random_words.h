// Random words and lines in many scripts.
#pragma once

#include "tests/random_numbers.h"

#include <string>

// Words of one kind; one in `tabs` separators is a tab.
std::u16string RandomLine(Random& random, int maxWords, int tabs);
std::u16string RandomLines(Random& random, int count, int maxWords, int tabs);
std::u16string OneLongLine(Random& random); // of many thousand characters, between short ones
