// The back ends of the clipboard that this build's contract tests run on.
#pragma once

#include "platform/clipboard.h"
#include "tests/contract/back_ends.h"

#include <string>
#include <vector>

class ClipboardUnderTest {
  public:
    virtual ~ClipboardUnderTest() = default;
    virtual Clipboard& Port() = 0;
    virtual std::u16string Text() = 0;    // as another program pastes it
    virtual std::u16string LineEnd() = 0; // in the system's programs
    virtual void CopyOther() = 0;         // another program copies something that is not text
    virtual bool HoldsTextOnly() = 0;
};

// Defined once in each test program.
std::vector<BackEnd<ClipboardUnderTest>> ClipboardBackEnds();
