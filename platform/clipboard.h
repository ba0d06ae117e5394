// The port of the clipboard.
#pragma once

#include <string>

class Clipboard {
  public:
    virtual ~Clipboard() = default;
    // Replaces what is there by Unicode text, and by nothing else: its lines end in "\n" here, and
    // as the system's programs expect it there. Failures are not reported.
    virtual void SetText(const std::u16string&) = 0;
};
