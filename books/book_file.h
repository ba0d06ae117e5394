// Reading book files, and telling the user why one cannot be opened.
#pragma once

#include "platform/dialogs.h"
#include "platform/files.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

struct MainForm;

// Rich text and pages are held in memory. How much plain text can be shown the view says.
constexpr std::uint64_t maxBookSize = 256u << 20; // bytes

// A book's file as it is read: rich text whole, plain text when it is needed.
struct BookContent {
    std::string richText;
    std::shared_ptr<const FileReader> plainText; // null for rich text
};

// Whether the path can be the key of a record and come back as itself.
bool IsStorablePath(const std::u16string& path);

// The file's first bytes, by which its kind is told; nothing when it cannot be opened as a book.
// The user has then been told.
std::optional<std::string> ExamineBookFile(MainForm&, const std::u16string& path);

// Opens the file; nothing when it cannot be read. The user has then been told.
std::optional<BookContent> ReadBookFile(MainForm&, const std::u16string& path);

// A message with an exclamation mark, and a Help button that opens the help at `topic`.
Message BookMessage(const MainForm&, const std::u16string& text, const char* topic = "mFileOpen");
// Shows it, on the window.
void ShowBookMessage(MainForm&, const std::u16string& text, const char* topic = "mFileOpen");
void TellOfNoHtmlView(MainForm&, const std::u16string& path);
