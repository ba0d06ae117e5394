// The registry under HKEY_LOCAL_MACHINE.
#pragma once

#include "platform/registry.h"

class WinRegistry final : public Registry {
  public:
    std::u16string Read(const std::u16string& key, const std::u16string& name) const override;
    int Write(const std::u16string& key, const std::u16string& name,
              const std::u16string& text) override;
};
