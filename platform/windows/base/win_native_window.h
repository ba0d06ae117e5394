// A window of a class of our own, whose messages are handled by a function.
#pragma once

#include "platform/windows/base/win32.h"

#include <functional>

class WinNativeWindow {
  public:
    struct Params {
        const wchar_t* className;
        DWORD style = 0, extendedStyle = 0;
        HWND parent = nullptr; // or HWND_MESSAGE
    };
    // Calls DefWindowProcW for messages that it does not handle.
    using MessageHandler = std::function<LRESULT(HWND, UINT, WPARAM, LPARAM)>;

    explicit WinNativeWindow(const Params&, MessageHandler = DefWindowProcW);
    ~WinNativeWindow();
    WinNativeWindow(const WinNativeWindow&) = delete;
    WinNativeWindow& operator=(const WinNativeWindow&) = delete;

    HWND Handle() const { return handle_; } // null once the window is destroyed

  private:
    static LRESULT CALLBACK WndProc(HWND, UINT, WPARAM, LPARAM) noexcept;

    HWND handle_ = nullptr;
    MessageHandler handler_;
};
