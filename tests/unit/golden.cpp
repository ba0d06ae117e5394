#include "tests/unit/golden.h"

#include "tests/unit/test_folders.h"

#include <doctest/doctest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

std::string ReadWholeFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

void CheckGolden(const std::string& name, const std::string& actual) {
    const std::string path = (SourceFolder() / "tests/golden" / name).string();
    if (std::getenv("APPROVE_GOLDEN"))
        std::ofstream(path, std::ios::binary | std::ios::trunc) << actual;
    CAPTURE(name);
    CHECK(ReadWholeFile(path) == actual);
}
