// Questions about files and their dates.
#pragma once

#include "platform/files.h"

#include <optional>
#include <string>

// False for "", a folder, or on any error.
bool FileExists(const Files&, const std::u16string& path);

// Local time. A stamp that the system does not keep is answered with the last write; none if that
// fails too.
std::optional<DateTime> GetFileDate(const Files&, const std::u16string& path, FileTime);

// Sets one stamp when it differs; the others stay. False when it could not be done.
bool SetFileDate(Files&, const std::u16string& path, const DateTime& local, FileTime);
