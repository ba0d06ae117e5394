// The Windows desktop.
#pragma once

#include "platform/shell.h"
#include "platform/windows/win_handle.h"

class WinShell final : public Shell {
  public:
    std::u16string DefaultTextEditor() const override;
    void OpenWith(const std::u16string& program, const std::u16string& argument) override;
    void OpenAddress(const std::u16string& address) override;
    bool BecomeOnlyInstance(const std::u16string& name) override;

  private:
    WinHandle lock_;
};
