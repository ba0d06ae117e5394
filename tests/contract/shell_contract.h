// The back ends of the desktop's shell that this build's contract tests run on.
#pragma once

#include "platform/shell.h"
#include "tests/contract/back_ends.h"

#include <string>
#include <vector>

// A program and a desktop that record what they are started with.
class ShellUnderTest {
  public:
    virtual ~ShellUnderTest() = default;
    virtual Shell& Port() = 0;

    virtual std::u16string Program() = 0;           // records its arguments
    virtual std::u16string Folder() = 0;            // for files of the test
    virtual std::u16string Address() = 0;           // one that the desktop has a program for
    virtual std::u16string File() = 0;              // full path of a file of which the same is true
    virtual bool Exists(const std::u16string&) = 0; // a file
    virtual void Settle() = 0;                      // events of the system are handled for a moment
    // The arguments of the next start that was recorded; waits for it, and fails after a deadline.
    virtual std::vector<std::u16string> NextStart() = 0;
};

// Defined once in each test program.
std::vector<BackEnd<ShellUnderTest>> ShellBackEnds();
