// Version information: of this program from the build, of others from their desktop entries.
#pragma once

#include "platform/version_info.h"

class QtVersionInfo final : public VersionInfo {
  public:
    ProgramVersion OwnVersion() const override;
    std::u16string FileDescription(const std::u16string& program,
                                   std::u16string_view ending) const override;
};
