// Putting new content in the place of a file in one step.
#pragma once

#include "platform/files.h"

#include <string>
#include <string_view>

// Whether the rights of this user allow it: the folder of the target (the end of its symbolic
// links) can be written, and the target, if there is one, is their own or may be written by them.
// Whose file it is decides, and not its write bits: they are the read-only mark of its owner.
bool MayReplace(const std::string& path);

// Writes a temporary file beside the target, flushes it to the disk and renames it. Mode, owner
// and, when asked, the last-write time of an old file are kept; a new file is for its owner and for
// those who may write into the folder. Anything but a regular file is left alone, and so is another
// user's that this one may not write. On failure (false) the old content is untouched and no
// temporary file stays.
bool ReplaceInOneStep(const std::string& path, std::string_view bytes, WriteTime time);

// Removes the temporary files that processes killed while replacing this file have left.
void RemoveLeftovers(const std::string& path);
