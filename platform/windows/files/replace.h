// Replacing a file's contents atomically.
#pragma once

#include "platform/files.h"

#include <string>
#include <string_view>

// Writes a temporary file beside the target (a symbolic link is resolved first), flushes it to disk
// and renames it over the target. Keeps the attributes, the DACL, the creation time and optionally
// the last-write time. Only replaces regular files. On failure (false) the old contents are
// untouched and no temporary file remains.
bool ReplaceInOneStep(const std::wstring& path, std::string_view bytes, WriteTime time);

// Removes temporary files of processes that were killed while replacing this file.
void RemoveLeftovers(const std::wstring& path);
