// Paths as text and as the system's bytes.
#pragma once

#include <optional>
#include <string>
#include <string_view>

// Each byte that is no part of valid UTF-8 becomes "?".
std::u16string PathFromNative(std::string_view bytes);

// None for a path that names nothing: empty, or with "?", U+FFFD, a NUL or half a pair in it.
std::optional<std::string> NativePath(const std::u16string& path);

std::string FolderOf(const std::string& path); // "/" for a name at the root, "." for a bare name
std::string NameOf(const std::string& path);   // what follows the last "/"

// What a chain of symbolic links ends in, whether or not that exists; none for a loop.
std::optional<std::string> FollowLinks(std::string path);
