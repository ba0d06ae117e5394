// What the command line asks for.
#pragma once

#include <string>
#include <vector>

// The path of the book, in the bytes of the file system: the arguments joined by blanks, from a
// "file:" address if it is one, and made absolute against `currentFolder`. "" without arguments.
std::string BookPathBytes(const std::vector<std::string>& arguments,
                          const std::string& currentFolder);
