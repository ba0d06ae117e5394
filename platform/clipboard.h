// The port of the clipboard.
#pragma once

#include <string>

class Clipboard {
  public:
    virtual ~Clipboard() = default;
    // Replaces what is there by Unicode text. Nothing is told of failure.
    virtual void SetText(const std::u16string&) = 0;
};
