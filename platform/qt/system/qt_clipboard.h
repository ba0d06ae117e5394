// The clipboard on Qt.
#pragma once

#include "platform/clipboard.h"

class QtClipboard final : public Clipboard {
  public:
    void SetText(const std::u16string&) override;
};
