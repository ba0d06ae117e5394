// Reading book files, and telling the user why one cannot be opened.
#pragma once

#include "platform/files.h"

#include <cstdint>
#include <optional>
#include <string>

struct MainForm;

// Positions are 32-bit and the text in memory is twice as large as most files.
constexpr std::uint64_t largestBook = 256u << 20; // bytes

// Whether the path can be the key of a record and come back as itself.
bool IsStorablePath(const std::u16string& path);

// The file's first bytes, by which its kind is told; nothing when it cannot be opened as a book.
// The user has then been told.
std::optional<std::string> ExamineBookFile(MainForm&, const std::u16string& path);

// The whole file; nothing when it cannot be read. The user has then been told.
std::optional<std::string> ReadBookFile(MainForm&, const std::u16string& path);

void ShowBookMessage(MainForm&, const std::u16string& text); // exclamation, with a Help button
