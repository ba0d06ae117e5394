// The Windows desktop.
#pragma once

#include "platform/shell.h"
#include "platform/windows/files/win_instance_lock.h"
#include "platform/windows/system/win_start_requests.h"

class WinShell final : public Shell {
  public:
    std::u16string DefaultTextEditor() const override;
    void OpenWith(const std::u16string& program, const std::u16string& argument) override;
    void OpenAddress(const std::u16string& address) override;
    void OpenFile(const std::u16string& path) override;
    void AddRecentDocument(const std::u16string& path) override;
    InstanceClaim ClaimDataFile(const std::u16string& path) override;
    HandOver HandOverBook(const std::u16string& dataFile, const std::u16string& book,
                          int milliseconds) override;

  private:
    WinInstanceLock lock_;
    StartRequestListener listener_{onStartRequest};
};
