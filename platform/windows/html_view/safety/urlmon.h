// Functions of urlmon.dll, which is loaded on first use.
#pragma once

#include "platform/windows/base/system_library.h"

template <typename Function>
Function UrlmonFunction(const char* name) { // null when missing
    static const HMODULE library = LoadSystemLibrary(L"urlmon.dll");
    Function function = nullptr;
    FindFunction(library, name, function);
    return function;
}
