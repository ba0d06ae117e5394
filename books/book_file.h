// Reading book files.
#pragma once

#include "common/file_limits.h"
#include "platform/files.h"

#include <cstdint>
#include <memory>
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

// A book's file as it is read: rich text whole, plain text when it is needed.
struct BookContent {
    BookProblem problem;
    std::string richText;
    std::shared_ptr<const FileReader> plainText; // null for rich text
};

struct BookStart {
    BookProblem problem;
    std::string bytes; // the first ones of the file, by which its kind is recognised
};

// `maxPlainText` is the size of the largest file, in bytes, whose plain text can be shown.
BookStart ExamineBookFile(const Files&, const std::u16string& path, std::uint64_t maxPlainText);
BookContent ReadBookFile(const Files&, const std::u16string& path, std::uint64_t maxPlainText);
