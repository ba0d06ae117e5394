// The fields of a record that say how its text is shown.
#pragma once

#include "books/book_record.h"
#include "reading/formatting.h"

// The font a record asks for, with what it leaves open as in `standard`; hand-edited values are
// kept within what a font can be.
ViewFont FontOf(const BookRecord&, ViewFont standard);
Color TextColorOf(const BookRecord&);
Color BackColorOf(const BookRecord&);

// Font but for its charset, colour, wrapping and alignment (0 to 2).
void StoreFormat(BookRecord&, const TextFormat&, bool wrap, int alignment);
