// Building command lines.
#pragma once

#include <string>

// Quotes an argument, where necessary, for CommandLineToArgvW and the C runtime.
std::wstring QuotedArgument(const std::wstring& argument);
