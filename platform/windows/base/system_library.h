// System DLLs that are loaded on first use, and functions in them.
#pragma once

#include "platform/windows/base/win32.h"

// From System32 only: a file of that name beside the program or a book is never loaded. Null when
// the system has none. It stays loaded.
inline HMODULE LoadSystemLibrary(const wchar_t* name) {
    return LoadLibraryExW(name, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
}

// Sets `function` to the export of `library`, which may be null; false and null when there is none.
template <typename Function>
bool FindFunction(HMODULE library, const char* name, Function& function) {
    const auto found = library ? GetProcAddress(library, name) : nullptr;
    function = reinterpret_cast<Function>(reinterpret_cast<void*>(found));
    return function != nullptr;
}
