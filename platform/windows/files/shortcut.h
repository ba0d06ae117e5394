// Shortcuts (.lnk): files that lead to another file, in whose place people drop and open them.
#pragma once

#include <string>

// The path that a shortcut leads to, whether or not there is a file; of anything else `path`
// itself. Needs COM.
std::u16string FollowShortcut(const std::u16string& path);
