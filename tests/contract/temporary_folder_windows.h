// An empty folder that goes with all that is in it.
#pragma once

#include "platform/windows/base/win32.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <string>
#include <vector>

// Sorted, without "." and "..".
inline std::vector<std::wstring> NamesInFolder(const std::wstring& folder) {
    std::vector<std::wstring> names;
    WIN32_FIND_DATAW found = {};
    const HANDLE search = FindFirstFileW((folder + L"\\*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return names;
    do {
        const std::wstring name = found.cFileName;
        if (name != L"." && name != L"..") names.push_back(name);
    } while (FindNextFileW(search, &found));
    FindClose(search);
    std::sort(names.begin(), names.end());
    return names;
}

// `path` may have the prefix for long ones.
inline void RemoveAll(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return;
    const bool isFolder = attributes & FILE_ATTRIBUTE_DIRECTORY;
    const bool isLink = attributes & FILE_ATTRIBUTE_REPARSE_POINT;
    if (isFolder && !isLink) {
        for (const std::wstring& name : NamesInFolder(path))
            RemoveAll(std::wstring(path).append(L"\\").append(name));
    }
    SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    if (isFolder)
        RemoveDirectoryW(path.c_str());
    else
        DeleteFileW(path.c_str());
}

struct TemporaryFolder {
    std::wstring path;

    TemporaryFolder() {
        wchar_t temporary[MAX_PATH] = {};
        REQUIRE(GetTempPathW(MAX_PATH, temporary) != 0);
        static int count = 0;
        path = temporary + (L"contract " + std::to_wstring(GetCurrentProcessId())) + L"." +
               std::to_wstring(++count);
        RemoveAll(L"\\\\?\\" + path); // what a killed test of the same process number left
        REQUIRE(CreateDirectoryW(path.c_str(), nullptr));
    }
    ~TemporaryFolder() { RemoveAll(L"\\\\?\\" + path); }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
};
