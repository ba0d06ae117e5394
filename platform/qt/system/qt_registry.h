// The registry of a system without one: nothing is stored.
#pragma once

#include "platform/registry.h"

class QtRegistry final : public Registry {
  public:
    std::u16string Read(const std::u16string& key, const std::u16string& name) const override;
    int Write(const std::u16string& key, const std::u16string& name,
              const std::u16string& text) override;
};
