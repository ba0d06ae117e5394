// The arguments of the program.
#pragma once

#include <optional>
#include <string>
#include <vector>

// What the program prints instead of opening a window, when its only argument is one of the options
// --help, -h and --version. A book of such a name is opened by "./--help".
std::optional<std::string> OptionAnswer(const std::vector<std::string>& arguments);

// The path of the book, in the bytes of the file system: the arguments joined by spaces (or the
// path of a "file:" URL), absolute. Relative paths start at `currentFolder`. "" without arguments.
std::string BookPathBytes(const std::vector<std::string>& arguments,
                          const std::string& currentFolder);
