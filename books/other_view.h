// A book that turns out to be of another kind, and so is shown in the other view.
#pragma once

#include "books/book_record.h"
#include "books/book_settings.h"

// A place, marks and a size of the text view mean nothing in the HTML view, and the other way
// round: what the record has of them is kept aside in the book's own section of the data file, for
// the day when the kind is changed back, and what was kept aside comes into the record. The first
// time there is nothing: the places of the view before are then found by their words, where these
// are kept.
void ExchangeViewState(BookRecord&, const BookSettings&);
