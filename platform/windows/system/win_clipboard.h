// The clipboard on Windows.
#pragma once

#include "platform/clipboard.h"

class WinClipboard final : public Clipboard {
  public:
    void SetText(const std::u16string&) override;
};
