// Where the tests find what they read. The paths of a clone are compiled into one file alone, so
// that the compiler's cache knows all others in each clone.
#pragma once

#include <filesystem>

std::filesystem::path SourceFolder();
std::filesystem::path RealBooks(); // of books that nobody here wrote; it may be missing
std::filesystem::path HelpFile();
