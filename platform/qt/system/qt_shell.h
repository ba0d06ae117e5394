// The desktop, through the tools of freedesktop.org.
#pragma once

#include "platform/posix/posix_instance_lock.h"
#include "platform/shell.h"

class QtShell final : public Shell {
  public:
    std::u16string DefaultTextEditor() const override; // xdg-open
    void OpenWith(const std::u16string& program, const std::u16string& argument) override;
    void OpenAddress(const std::u16string& address) override;
    void OpenFile(const std::u16string& path) override;
    InstanceClaim ClaimDataFile(const std::u16string& path) override;

  private:
    InstanceLock lock_;
};
