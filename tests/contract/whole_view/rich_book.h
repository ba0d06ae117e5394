// A styled text made by chance, with or without tables and pictures.
#pragma once

#include "tests/contract/whole_view/chance.h"
#include "tests/contract/whole_view/random_book.h"

RandomBook MakeRichBook(Random& random, bool tables, bool pictures);
