// What kind of book a file is.
#pragma once

#include "books/book_record.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The Open dialog's filter list.
extern const std::u16string_view bookFilter;

// Every second piece of a filter list: the patterns.
std::vector<std::u16string> GetFilterPatterns(std::u16string_view filter);

// "*" stands for any text, "?" for any one unit; letters match in both cases.
bool MatchesPattern(std::u16string_view text, std::u16string_view pattern);

// What the Open dialog lists for each type of the filter list. The filter's pattern for HTML is the
// short form of old file systems; its pages have longer endings, too.
std::vector<std::u16string> ListedPatterns();

// The kind that a name suggests: the first type whose files are listed by it; Other for any name.
BookKind KindOfName(std::u16string_view path);

// The kind of a file from its first bytes and its name.
BookKind KindOfBook(std::u16string_view path, std::string_view firstBytes);

// The kind that a book is opened as; nothing: to be recognised from the file.
using RequestedKind = std::optional<BookKind>;

// The kind of a file chosen while the Open dialog showed this type (from 1): what its name
// suggests, else the type; nothing for all files.
RequestedKind KindOfChoice(std::u16string_view path, int filterIndex);

// The kind of a book that is opened as `asked` while the list holds it as `listed`. What was only
// recognised from the file changes a text to rich text or HTML where name and content both say so.
BookKind KindOfListedBook(BookKind listed, RequestedKind asked, std::u16string_view path,
                          std::string_view firstBytes);
