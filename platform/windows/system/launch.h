// Where the program stands, and what its command line asks for.
#pragma once

#include "platform/ports.h"

#include <vector>

Launch ThisLaunch();

// The path of the book: the arguments joined by blanks, made full against the current folder. ""
// without arguments.
std::u16string BookPath(const std::vector<std::wstring>& arguments);

// The argument as it must stand in a command line, so that the started program's
// CommandLineToArgvW, or its C runtime, gives it back as it is; in quotes only where that needs be.
std::wstring QuotedArgument(const std::wstring& argument);
