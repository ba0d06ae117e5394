// Putting new content in the place of a file in one step.
#pragma once

#include <string>
#include <string_view>

// Writes a temporary file beside the target (what its symbolic link leads to), flushes it to the
// disk and renames it over the target. Attributes, rights, the creation time and, when asked, the
// last-write time of an old file are kept. Anything but a regular file is left alone. On failure
// (false) the old content is untouched and no temporary file stays.
bool ReplaceInOneStep(const std::wstring& path, std::string_view bytes, bool keepFileTime);

// Removes the temporary files that processes killed while replacing this file have left.
void RemoveLeftovers(const std::wstring& path);
