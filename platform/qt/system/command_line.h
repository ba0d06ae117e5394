// The arguments of the program.
#pragma once

#include <string>
#include <vector>

// The path of the book, in the bytes of the file system: the arguments joined by spaces (or the
// path of a "file:" URL), absolute. Relative paths start at `currentFolder`. "" without arguments.
std::string BookPathBytes(const std::vector<std::string>& arguments,
                          const std::string& currentFolder);
