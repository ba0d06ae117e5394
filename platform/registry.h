// The port of the registry, under HKEY_LOCAL_MACHINE. A system without one keeps nothing.
#pragma once

#include <string>

class Registry {
  public:
    virtual ~Registry() = default;
    virtual std::u16string Read(const std::u16string& key,
                                const std::u16string& name) const = 0; // "" if missing
    // Writes text. Returns 0, or the system's error code.
    virtual int Write(const std::u16string& key, const std::u16string& name,
                      const std::u16string& text) = 0;
};
