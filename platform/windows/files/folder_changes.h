// What ReadDirectoryChangesW says of one folder.
#pragma once

#include "platform/windows/base/win_handle.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

// Says by a message that something has happened. The folder can be deleted and renamed meanwhile;
// a folder above it cannot, as long as this one is open.
class FolderChanges {
  public:
    FolderChanges(const std::wstring& folder, HWND window, UINT message);
    ~FolderChanges();
    FolderChanges(const FolderChanges&) = delete;
    FolderChanges& operator=(const FolderChanges&) = delete;

    bool IsWatching() const { return asked_; } // not once the folder has gone
    HANDLE Folder() const { return folder_.Get(); }

    // The names that something has happened to; none when there were too many to be kept.
    std::optional<std::vector<std::wstring>> Take();

  private:
    // What the system writes to. It stays behind if the system does not let go of it.
    struct Request {
        OVERLAPPED overlapped = {};
        WinHandle done; // an event
        alignas(DWORD) BYTE changes[16 * 1024];
    };
    static void CALLBACK Post(void* self, BOOLEAN timedOut);
    void Ask();

    const HWND window_;
    const UINT message_;
    WinHandle folder_;
    std::unique_ptr<Request> request_;
    HANDLE wait_ = nullptr;
    bool asked_ = false;
};
