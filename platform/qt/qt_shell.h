// The desktop of a free system.
#pragma once

#include "platform/shell.h"

#include <memory>

class PosixInstanceLock;

class QtShell final : public Shell {
  public:
    QtShell();
    ~QtShell() override;

    std::u16string DefaultTextEditor() const override; // the desktop's opener of files
    void OpenWith(const std::u16string& program, const std::u16string& argument) override;
    bool BecomeOnlyInstance(const std::u16string& name) override;

  private:
    std::unique_ptr<PosixInstanceLock> lock_;
};
