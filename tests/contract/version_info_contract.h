// The back ends of the version information that this build's contract tests run on.
#pragma once

#include "platform/version_info.h"
#include "tests/contract/back_ends.h"

#include <vector>

class VersionInfoUnderTest {
  public:
    virtual ~VersionInfoUnderTest() = default;
    virtual VersionInfo& Port() = 0;
    virtual std::u16string DescribedProgram() = 0; // a full path
    virtual std::u16string Description() = 0;      // of that program, also beyond ASCII
    virtual std::u16string Folder() = 0;           // with the plain file "text" in it
};

// Defined once in each test program.
std::vector<BackEnd<VersionInfoUnderTest>> VersionInfoBackEnds();
