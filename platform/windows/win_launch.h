// Where the program stands, and what its command line asks for.
#pragma once

#include "platform/ports.h"

#include <vector>

Launch ThisLaunch();

// The path of the book: the arguments joined by blanks, made full against the current folder. ""
// without arguments.
std::u16string BookPath(const std::vector<std::wstring>& arguments);
