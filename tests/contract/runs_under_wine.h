// Whether the tests run on Windows itself or under Wine, which does some things otherwise.
#pragma once

#include "platform/windows/base/win32.h"

inline bool RunsUnderWine() {
    const HMODULE system = GetModuleHandleW(L"ntdll");
    return system && GetProcAddress(system, "wine_get_version");
}
