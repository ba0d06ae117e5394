// Arguments of a command line.
#pragma once

#include <string>

// The argument as it must stand in a command line, so that the started program's
// CommandLineToArgvW, or its C runtime, gives it back as it is; in quotes only where that needs be.
std::wstring QuotedArgument(const std::wstring& argument);
