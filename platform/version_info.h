// The port of version information: of this program, and of others.
#pragma once

#include <string>
#include <string_view>

struct ProgramVersion {
    std::u16string company, title, description, comments, copyright, trademarks;
    int major = 0, minor = 0, revision = 0;
};

class VersionInfo {
  public:
    virtual ~VersionInfo() = default;
    virtual ProgramVersion OwnVersion() const = 0;
    // What a program is called, "" if nothing says it. Of one that only hands files on, what gets
    // those with this ending (".txt") from it.
    virtual std::u16string FileDescription(const std::u16string& program,
                                           std::u16string_view ending) const = 0;
};
