#include "test_files.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace fs = std::filesystem;

bool HasTestFiles() {
    const bool has = fs::is_directory(HTML5LIB_TESTS);
    if (!has) MESSAGE("skipped: no html5lib-tests beside the clone");
    return has;
}

std::vector<std::string> TestFiles(const std::string& folder, const std::string& ending) {
    std::vector<std::string> paths;
    for (const auto& entry : fs::directory_iterator(fs::path(HTML5LIB_TESTS) / folder))
        if (entry.path().extension() == ending) paths.push_back(entry.path().string());
    std::ranges::sort(paths);
    return paths;
}

std::string ReadTestFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}
