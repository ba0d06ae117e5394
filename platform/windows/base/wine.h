// Where the program does not run on Windows itself, and a part of the system is missing or broken.
#pragma once

#include "platform/windows/base/win32.h"

inline bool RunsUnderWine() {
    const HMODULE system = GetModuleHandleW(L"ntdll");
    return system && GetProcAddress(system, "wine_get_version");
}
