#include "platform/windows/portable/quoted_argument.h"

#include <cstddef>

std::wstring QuotedArgument(const std::wstring& argument) {
    if (!argument.empty() && argument.find_first_of(L" \t\n\v\"") == argument.npos) return argument;
    std::wstring quoted = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t unit : argument) {
        if (unit == L'"')
            quoted.append(backslashes + 1,
                          L'\\'); // backslashes before a quote are doubled, and it is escaped
        quoted += unit;
        backslashes = unit == L'\\' ? backslashes + 1 : 0;
    }
    quoted.append(backslashes, L'\\'); // also before the closing quote
    return quoted + L'"';
}
