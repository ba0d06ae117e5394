// The port of the registry, under HKEY_LOCAL_MACHINE. A system without one keeps nothing. Windows
// keeps values apart for programs of 32 and of 64 bits: these are those that the other kind sees.
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
