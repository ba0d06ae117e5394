// Putting new content in the place of a file in one step.
#pragma once

#include <string>
#include <string_view>

// Writes a temporary file beside the target (the end of its symbolic links), flushes it to the disk
// and renames it. Mode, owner and, when asked, the last-write time of an old file are kept; a new
// file is the user's own to read. Anything but a regular file is left alone. On failure (false) the
// old content is untouched and no temporary file stays.
bool ReplaceInOneStep(const std::string& path, std::string_view bytes, bool keepFileTime);

// Removes the temporary files that processes killed while replacing this file have left.
void RemoveLeftovers(const std::string& path);
