// The program's folders and its command line.
#pragma once

#include "platform/ports.h"

#include <vector>

Launch ThisLaunch();

// The book's full path: the arguments joined by spaces, relative to the current directory. ""
// without arguments.
std::u16string BookPath(const std::vector<std::wstring>& arguments);
