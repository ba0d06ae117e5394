// A window of a class of our own, whose messages go to a function.
#pragma once

#include "platform/windows/base/win32.h"

#include <functional>

class WinNativeWindow {
  public:
    struct Kind {
        const wchar_t* className;
        DWORD style = 0, extendedStyle = 0;
        HWND parent = nullptr; // or HWND_MESSAGE
    };
    // Answers what DefWindowProcW would for messages that it has no interest in.
    using Procedure = std::function<LRESULT(HWND, UINT, WPARAM, LPARAM)>;

    explicit WinNativeWindow(const Kind&, Procedure = DefWindowProcW);
    ~WinNativeWindow();
    WinNativeWindow(const WinNativeWindow&) = delete;
    WinNativeWindow& operator=(const WinNativeWindow&) = delete;

    HWND Handle() const { return handle_; } // null once the window is destroyed

  private:
    static LRESULT CALLBACK Receive(HWND, UINT, WPARAM, LPARAM) noexcept;

    HWND handle_ = nullptr;
    Procedure procedure_;
};
