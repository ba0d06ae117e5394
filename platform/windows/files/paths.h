// Paths for the file functions of the system.
#pragma once

#include <optional>
#include <string>

// The full path with "\" as separator, and with the prefix "\\?\" where it would exceed MAX_PATH.
// None for an invalid path (empty, or with a NUL or "?") and for a device.
std::optional<std::wstring> NativePath(const std::u16string& path);

// A device, a pipe or a mailslot: "\\.\pipe\x", "\\server\pipe\x", and "C:\books\NUL" on systems
// that treat it as one.
bool IsDevicePath(const std::u16string& path);

std::wstring FolderOf(const std::wstring& path); // up to its last "\", which is not part of it
std::wstring NameOf(const std::wstring& path);   // what follows the last "\"

// For comparing names case-insensitively, as the file system does.
std::wstring UppercasePath(const std::wstring& path);
