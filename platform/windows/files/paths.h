// Paths as text and as the system takes them.
#pragma once

#include <optional>
#include <string>

// The full path with every "/" turned into "\", with the prefix "\\?\" where it is too long for
// functions of the system without one. None for a path that names nothing (empty, or with a NUL or
// "?" in it) or a device.
std::optional<std::wstring> NativePath(const std::u16string& path);

// Whether this is a device, a pipe or a mailslot and no place in a file system: "\\.\pipe\x",
// "\\server\pipe\x", "C:\books\NUL" where the system takes that for one.
bool NamesDevice(const std::u16string& path);

std::wstring FolderOf(const std::wstring& path); // up to its last "\", which is not part of it
std::wstring NameOf(const std::wstring& path);   // what follows the last "\"

// The same text for one name in any case, as the system compares names of files.
std::wstring FoldedPath(const std::wstring& path);
