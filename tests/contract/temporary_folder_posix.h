// An empty folder that goes with all that is in it.
#pragma once

#include <doctest/doctest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

struct TemporaryFolder {
    std::string path = (std::filesystem::temp_directory_path() / "contract.XXXXXX").string();

    TemporaryFolder() { REQUIRE(mkdtemp(path.data()) != nullptr); }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
};
