// Windows to test the text view in.
#pragma once

#include "platform/windows/base/win32.h"

// A top-level window that is never shown, for the whole run.
HWND HiddenWindow();

// As if a key of the keyboard were down, for as long as this lives.
class HeldKey {
  public:
    explicit HeldKey(int key);
    ~HeldKey();
    HeldKey(const HeldKey&) = delete;
    HeldKey& operator=(const HeldKey&) = delete;

  private:
    int key_;
};
