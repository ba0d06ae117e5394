// The back ends of the file watch that this build's contract tests run on.
#pragma once

#include "platform/file_watch.h"
#include "tests/contract/back_ends.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

// One with an empty folder, in which other programs do as they are told.
class FileWatchUnderTest {
  public:
    virtual ~FileWatchUnderTest() = default;
    virtual FileWatch& Port() = 0;
    virtual FileWatch& OtherPort() = 0;                                         // one more
    virtual std::u16string Path(const std::u16string& name) = 0;                // in the folder
    virtual void Write(const std::u16string& path, std::string_view bytes) = 0; // in place
    virtual void Replace(const std::u16string& path, std::string_view bytes) = 0;
    virtual void Remove(const std::u16string& path) = 0;
    // Runs the event loop until the condition holds; false if it does not within a deadline.
    virtual bool Becomes(const std::function<bool()>& condition) = 0;

    // A link in another folder; "" where there are none.
    virtual std::u16string LinkTo(const std::u16string&) { return u""; }
    virtual bool RenameFolder() { return false; } // false where that is not possible meanwhile
};

// Defined once in each test program.
std::vector<BackEnd<FileWatchUnderTest>> FileWatchBackEnds();
