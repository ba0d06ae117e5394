// Files as they are dropped on a window.
#pragma once

#include "platform/windows/base/win32.h"

#include <shellapi.h>
#include <shlobj.h>

#include <cstring>
#include <string>

// In memory that whoever takes them frees. Each path ends with a zero.
inline HGLOBAL DroppedMemory(const std::wstring& paths) {
    const std::size_t size = (paths.size() + 2) * sizeof(wchar_t); // also an empty list has two
    const HGLOBAL memory = GlobalAlloc(GHND, sizeof(DROPFILES) + size);
    auto* const files = static_cast<DROPFILES*>(GlobalLock(memory));
    files->pFiles = sizeof(DROPFILES);
    files->fWide = TRUE;
    std::memcpy(files + 1, paths.data(), paths.size() * sizeof(wchar_t));
    GlobalUnlock(memory);
    return memory;
}

// For WM_DROPFILES.
inline WPARAM DropOf(const std::wstring& paths) {
    return reinterpret_cast<WPARAM>(DroppedMemory(paths));
}
