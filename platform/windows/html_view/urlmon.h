// Functions of urlmon.dll, which is loaded by the first one asked for and not with the program.
#pragma once

#include "platform/windows/win32.h"

template <typename Function>
Function UrlmonFunction(const char* name) { // null when missing
    static const HMODULE library =
        LoadLibraryExW(L"urlmon.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (!library) return nullptr;
    return reinterpret_cast<Function>(reinterpret_cast<void (*)()>(GetProcAddress(library, name)));
}
