// What the tests and the program that they start agree upon.
#pragma once

#include "platform/windows/base/win32.h"

#include <string>

// Names of environment variables: what to do, and the file that the answer goes to.
inline constexpr wchar_t HelperDoes[] = L"NORVASET_HELPER_DOES";
inline constexpr wchar_t HelperOutput[] = L"NORVASET_HELPER_OUTPUT";
// It records its arguments, each with a NUL after it, in a file of its own below that path, whose
// name ends in ".started"; or tells the name of its own file and the argument; or takes the lock of
// that name, tells "yes" or "no", and lives until it is killed; or replaces the file of that name
// without end, by HelperBytes of one letter and then of another, and says so the first time; or
// opens that file, sharing it with nobody, and tells "yes" or "no", and lives until it is killed.
inline constexpr wchar_t HelperRecords[] = L"records", HelperNames[] = L"names",
                         HelperHolds[] = L"holds", HelperReplaces[] = L"replaces",
                         HelperKeeps[] = L"keeps";
inline constexpr std::size_t HelperBytes = 300'000;

// Beside the program of the tests.
inline std::wstring HelperPath() {
    wchar_t own[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, own, MAX_PATH);
    const std::wstring path = own;
    return path.substr(0, path.rfind(L'\\') + 1) + L"windows_helper.exe";
}
