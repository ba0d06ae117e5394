// The window that hosts the browser control; shows a notice when there is none.
#pragma once

#include "platform/windows/base/win32.h"

#include <functional>
#include <string>

class PageWindow {
  public:
    struct Events {
        std::function<void()> onResize, onFocus, onDestroy;
        std::function<void()> onPosted; // for each `Post`, from the message loop
        std::function<void()> onIdle;   // after `NotifyWhenIdle`, once
    };

    PageWindow(HWND parent, Events);
    ~PageWindow();
    PageWindow(const PageWindow&) = delete;
    PageWindow& operator=(const PageWindow&) = delete;

    HWND Handle() const { return handle_; } // null once destroyed, as with its parent
    void SetNotice(std::wstring);           // "" shows none
    void Post();
    void NotifyWhenIdle(); // when the message queue is empty

  private:
    static LRESULT CALLBACK WndProc(HWND, UINT, WPARAM, LPARAM) noexcept;
    LRESULT HandleMessage(UINT, WPARAM, LPARAM);
    void Paint();

    HWND handle_ = nullptr;
    std::wstring notice_;
    Events events_;
};
