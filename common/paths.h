// Paths of files, as texts.
#pragma once

#include <string>
#include <string_view>

// By the system's separator. "" for a bare name, and the separator alone for one at the root.
std::u16string_view FolderOf(std::u16string_view path, char16_t separator);
// What follows the last one: a bare name itself.
std::u16string_view FileNameOf(std::u16string_view path, char16_t separator);

// Of a path of POSIX, which begins with "/", a backslash is a letter like others; on Windows either
// separates.
bool IsPosixPath(std::u16string_view path);
bool IsPathSeparator(char16_t unit, bool posix);

// The folder of a path of either system, without a separator at its end; a bare name itself.
std::u16string_view FolderOf(std::u16string_view path);

// On another machine, as far as its path tells: nobody should wait for that.
bool IsNetworkPath(std::u16string_view path);
