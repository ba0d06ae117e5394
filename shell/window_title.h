// The title of the main window, and the name of the book where it is read aloud.
#pragma once

#include "books/book_record.h"

#include <string>

// What of the shown book can stand in the title.
struct TitledBook {
    std::u16string path;
    std::u16string title; // of its own, decoded; "" for none
};

// The shown book's path and the title of its record.
TitledBook TitledBookOf(const BookRecord&, const std::u16string& path);

enum class TitleMode { Path, BookTitle };

// "product [profile] - path", by the mode with the book's own title for the path if there is one;
// null for no book: the first part alone.
std::u16string WindowTitle(const std::u16string& product, const std::u16string& profile,
                           const TitledBook*, TitleMode);

// Title or file name: what one would say of the book.
std::u16string AccessibleBookName(const TitledBook&, char16_t separator);
