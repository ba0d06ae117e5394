// What every back end's files must do.
#pragma once

#include "platform/files.h"

#include <doctest/doctest.h>

#include <string>
#include <string_view>
#include <vector>

// One back end with a writable, empty folder.
class FilesUnderTest {
  public:
    virtual ~FilesUnderTest() = default;
    virtual Files& Port() = 0;
    virtual std::u16string Root() = 0;
    virtual void MakeReadOnly(const std::u16string& file) = 0;
    virtual bool IsReadOnly(const std::u16string& file) = 0;
    virtual std::vector<std::u16string> NamesIn(const std::u16string& folder) = 0; // sorted
    // As another program does it that saves a file of this name.
    virtual void ReplaceAsAnotherProgram(const std::u16string& file, std::string_view bytes) {
        REQUIRE(Port().Replace(file, bytes, WriteTime::Now));
    }
    // False where the system makes up a creation time from the others.
    virtual bool KnowsCreationTimes() { return true; }

    std::string BytesOf(const std::u16string& path) {
        std::string bytes;
        CHECK(Port().Read(path, 1u << 30, bytes) == ReadStatus::Ok);
        return bytes;
    }
    std::u16string Path(const std::u16string& name) { return Root() + Port().Separator() + name; }
};

// To be called from a test case, which doctest runs again for each part with a new back end.
void CheckFilesContract(FilesUnderTest&);
