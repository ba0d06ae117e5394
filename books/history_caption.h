// The caption of a book in the history list.
#pragma once

#include "books/book_record.h"
#include "books/date_texts.h"

#include <string>
#include <string_view>

// "[date] (12K) path", then a tab and "= title". A record never read shows no date.
std::u16string HistoryCaption(const BookRecord&, const DateNames&, const DateTime& now);

// The same caption with path and title each in a direction of their own; "" when none of their
// letters is written from right to left.
std::u16string DirectedCaption(std::u16string_view caption);
