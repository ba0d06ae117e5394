// The port of version information: of this program, and of others.
#pragma once

#include <string>

struct ProgramVersion {
    std::u16string company, title, description, comments, copyright, trademarks;
    int major = 0, minor = 0, revision = 0;
};

class VersionInfo {
  public:
    virtual ~VersionInfo() = default;
    virtual ProgramVersion OwnVersion() const = 0;
    virtual std::u16string
    FileDescription(const std::u16string& program) const = 0; // "" if it has none
};
