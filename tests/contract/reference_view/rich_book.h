// A random rich text, with or without tables and pictures.
#pragma once

#include "tests/contract/reference_view/random_book.h"
#include "tests/random_numbers.h"

RandomBook MakeRichBook(Random& random, bool tables, bool pictures);
