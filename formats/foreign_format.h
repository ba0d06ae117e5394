// Recognises files of other formats, which shown as text would be signs without any meaning.
#pragma once

#include <cstddef>
#include <string_view>

constexpr std::size_t foreignFormatStart = 512; // bytes at the start of a file that identify it

// What the file is, in words that follow "is ", or "" for what may be text. Its name does not
// matter, and a text that happens to begin like such a file is text.
std::u16string_view ForeignFormat(std::string_view firstBytes);
