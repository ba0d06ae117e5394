// Version information from the resources of programs.
#pragma once

#include "platform/version_info.h"

class WinVersionInfo final : public VersionInfo {
  public:
    ProgramVersion OwnVersion() const override; // what its own resource lacks, from the build
    std::u16string FileDescription(const std::u16string& program,
                                   std::u16string_view ending) const override;
};

// One value of a file's version information: "FileVersion" as its four numbers "1.00.0.0000",
// "Language" as four hexadecimal digits, or a text under the first language of the file, such as
// "ProductName". "" for a file without it.
std::u16string GetFileVersionString(const std::u16string& path, const std::u16string& key);
