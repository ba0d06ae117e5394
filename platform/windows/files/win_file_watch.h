// Changes of a file on Windows.
#pragma once

#include "platform/file_watch.h"
#include "platform/windows/base/win_native_window.h"
#include "platform/windows/files/folder_changes.h"

#include <memory>
#include <string>

class WinFileWatch final : public FileWatch {
  public:
    WinFileWatch();
    ~WinFileWatch() override;

    void Watch(const std::u16string& path) override;
    void Stop() override;
    bool SeesAllChanges() const override { return complete_ && folder_; }

  private:
    LRESULT Handle(HWND, UINT, WPARAM, LPARAM);
    void HandleChanges();

    WinNativeWindow window_;
    std::wstring name_; // of the file in its folder
    std::unique_ptr<FolderChanges> folder_;
    bool complete_ = false;
    void* deviceNotification_ = nullptr; // HDEVNOTIFY
};
