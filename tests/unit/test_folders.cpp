#include "tests/unit/test_folders.h"

std::filesystem::path SourceFolder() {
    return SOURCE_FOLDER;
}

std::filesystem::path RealBooks() {
    return REAL_BOOKS;
}

std::filesystem::path HelpFile() {
    return HELP_FILE;
}
