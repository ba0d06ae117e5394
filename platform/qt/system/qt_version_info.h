// Version information: this program's from the build, others' from their desktop entries.
#pragma once

#include "platform/version_info.h"

class QtVersionInfo final : public VersionInfo {
  public:
    ProgramVersion OwnVersion() const override;
    std::u16string FileDescription(const std::u16string& program) const override;
};
