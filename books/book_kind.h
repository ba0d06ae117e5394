// What kind of book a file is.
#pragma once

#include "books/book_record.h"

#include <string>
#include <string_view>
#include <vector>

// The Open dialog's filter list.
extern const std::u16string_view bookFilter;

// Every second piece of a filter list: the patterns.
std::vector<std::u16string> GetFilterPatterns(std::u16string_view filter);

// "*" stands for any text, "?" for any one unit; letters match in both cases.
bool MatchesPattern(std::u16string_view text, std::u16string_view pattern);

// The kind of a file from its first bytes and its name.
int KindOfBook(std::u16string_view path, std::string_view firstBytes);
