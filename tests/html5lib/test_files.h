// The folder of html5lib-tests beside the clone.
#pragma once

#include <string>
#include <vector>

bool HasTestFiles(); // says so where there are none
// Their paths, sorted, with this ending; those of the folder itself, not of folders in it.
std::vector<std::string> TestFiles(const std::string& folder, const std::string& ending);
std::string ReadTestFile(const std::string& path);
