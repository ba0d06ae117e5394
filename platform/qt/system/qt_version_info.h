// Version information: of this program from the build, of others from their desktop entries.
#pragma once

#include "platform/version_info.h"

#include <string>
#include <string_view>

class QtVersionInfo final : public VersionInfo {
  public:
    ProgramVersion OwnVersion() const override;
    std::u16string FileDescription(const std::u16string& program) const override;
};

// The name in the first group of a desktop entry file (freedesktop.org, version 1.5), in the
// language of `locale` ("de_DE", "de", ...) if there is one, else the unlocalized name. "" when the
// file has no name. All texts are UTF-8.
std::string DesktopEntryName(std::string_view file, std::string_view locale);
