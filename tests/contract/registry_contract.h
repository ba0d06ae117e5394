// The back ends of the registry that this build's contract tests run on.
#pragma once

#include "platform/registry.h"
#include "tests/contract/back_ends.h"

#include <vector>

class RegistryUnderTest {
  public:
    virtual ~RegistryUnderTest() = default; // removes what was written to `Key()`
    virtual Registry& Port() = 0;
    virtual std::u16string Key() = 0; // one that does not exist yet
};

// Defined once in each test program.
std::vector<BackEnd<RegistryUnderTest>> RegistryBackEnds();
