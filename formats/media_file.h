// Files that are looked at and listened to.
#pragma once

#include <cstddef>
#include <string_view>

constexpr std::size_t mediaStart = 16; // bytes at the start of a file that identify it

// A picture, sound, film or PDF, by its name and by its first bytes: some desktops choose the
// program for a file by the one, some by the other, so that a program or a script that has the name
// of a picture would be run by these. Only what no viewer runs: a drawing in SVG may hold scripts,
// an office document macros.
bool IsMediaFile(std::u16string_view path, std::string_view firstBytes);
