// How a later start of the program reaches the running one: by WM_COPYDATA.
#pragma once

#include "platform/instance.h"
#include "platform/windows/base/win_native_window.h"

#include <deque>
#include <functional>
#include <memory>
#include <string>

// A message-only window, found by its title, which names the lock file by its number on the volume:
// so one file has one name however its path is spelled. It is of this session's desktop; processes
// of other users are not listened to.
class StartRequestListener {
  public:
    using Handler = std::function<void(const StartRequest&)>; // null: requests are refused
    explicit StartRequestListener(const Handler& handler); // which outlives this, may be reassigned

    void Listen(const std::wstring& lockFile); // of its holder

  private:
    LRESULT HandleMessage(HWND, UINT, WPARAM, LPARAM);
    bool Note(HWND sender, const COPYDATASTRUCT&);
    void HandleNext();

    const Handler& handler_;
    struct Pending {
        HWND sender;
        unsigned long long deadline; // GetTickCount64: given up then
        StartRequest request;
    };
    std::deque<Pending> pending_;
    std::unique_ptr<WinNativeWindow> window_;
};

// Asks the holder of the lock, and lets it come to the front.
HandOver AskRunningInstance(const std::wstring& lockFile, const std::u16string& book,
                            int milliseconds);
