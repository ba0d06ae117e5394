// Subclasses the engine's window inside the control, for its commands and clicks.
#pragma once

#include "platform/html_view.h"
#include "platform/windows/base/win32.h"

class InnerWindow {
  public:
    class Owner {
      public:
        virtual void OnCommand(PageCommand) = 0;
        virtual bool IsInSelection(POINT pixels) const = 0; // client coordinates

      protected:
        ~Owner() = default;
    };

    explicit InnerWindow(Owner& owner) : owner_(owner) {}
    ~InnerWindow() { Detach(); }
    InnerWindow(const InnerWindow&) = delete;
    InnerWindow& operator=(const InnerWindow&) = delete;

    bool Attach(HWND host); // finds it inside `host`; false when there is none
    void Detach();
    HWND Handle() const { return window_; } // null without one

  private:
    static LRESULT CALLBACK SubclassProc(HWND, UINT, WPARAM, LPARAM, UINT_PTR, DWORD_PTR) noexcept;
    LRESULT HandleMessage(UINT, WPARAM, LPARAM);
    LRESULT HandleCommand(WPARAM, LPARAM);
    LRESULT HandleRightButtonUp(WPARAM, LPARAM);

    Owner& owner_;
    HWND window_ = nullptr;
};
