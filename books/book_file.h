// Reading book files.
#pragma once

#include "books/book_record.h"
#include "common/file_limits.h"
#include "platform/files.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

// Rich text and pages are held in memory. How much plain text can be shown the view says.
constexpr std::uint64_t maxBookSize = maxFileInMemory;

// What the user is told when the file cannot be opened as a book; "" when it can.
struct BookProblem {
    std::u16string text;
    explicit operator bool() const { return !text.empty(); }
};

BookProblem
NoPageView(const std::u16string& path); // no HTML view on this front, or none that works

// Rich text whole, plain text to be read when it is needed.
struct BookContent {
    std::string richText;
    std::shared_ptr<const FileReader> plainText; // null for rich text
};

// A file that was looked at once, for all that is to be known of it.
struct BookFile {
    std::u16string path;
    BookProblem problem;
    // From before it was read: of a file that changes meanwhile the next look sees that it has.
    std::optional<FileVersion> version;
    std::string start;                  // its first bytes, by which its kind is recognised
    std::optional<BookContent> content; // once it was read
};

// Opens it to be shown: a page is read by its view, and only begun here; any other kind is read.
// `maxPlainText` is the size of the largest file, in bytes, whose plain text can be shown.
BookFile OpenBookFile(const Files&, const std::u16string& path, std::uint64_t maxPlainText,
                      BookKind);
// Reads what was not read yet.
void ReadContent(const Files&, std::uint64_t maxPlainText, BookFile&);
// Opens and reads it, whatever it is.
BookFile ReadBookFile(const Files&, const std::u16string& path, std::uint64_t maxPlainText);
