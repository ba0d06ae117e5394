#include "platform/windows/win_arguments.h"

#include <cstddef>

std::wstring QuotedArgument(const std::wstring& argument) {
    if (!argument.empty() && argument.find_first_of(L" \t\n\v\"") == argument.npos) return argument;
    std::wstring quoted = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t unit : argument) {
        if (unit == L'"') quoted.append(backslashes + 1, L'\\'); // twice those before, and its own
        quoted += unit;
        backslashes = unit == L'\\' ? backslashes + 1 : 0;
    }
    quoted.append(backslashes, L'\\'); // those before the closing quote count twice, too
    return quoted + L'"';
}
