// The caption of a book in the history list.
#pragma once

#include "books/book_record.h"
#include "books/date_texts.h"

#include <string>

// "[date] (12K) path", then a tab and "= title". A record never read shows no date.
std::u16string HistoryCaption(const BookRecord&, const DateNames&, const DateTime& now);
