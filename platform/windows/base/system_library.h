// Libraries of the system that the program loads when it first needs them, and functions in them.
#pragma once

#include "platform/windows/base/win32.h"

// From the system's own folder only: a file of that name beside the program or a book is never
// taken for it. Null when the system has none. It stays loaded.
inline HMODULE LoadSystemLibrary(const wchar_t* name) {
    return LoadLibraryExW(name, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
}

// Whether `library`, which may be null, has the function; it is then in `function`, which is null
// otherwise.
template <typename Function>
bool FindFunction(HMODULE library, const char* name, Function& function) {
    const auto found = library ? GetProcAddress(library, name) : nullptr;
    function = reinterpret_cast<Function>(reinterpret_cast<void*>(found));
    return function != nullptr;
}
