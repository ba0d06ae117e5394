// Doing something to the dialog that opens next, from within its own message loop.
#pragma once

#include "platform/windows/base/text.h"
#include "platform/windows/base/win32.h"

#include <doctest/doctest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

class WhileOpen {
  public:
    // Acts on the first dialog of this thread that is shown and can be used, once. An act may wait
    // for a further dialog in the same way.
    explicit WhileOpen(std::function<void(HWND)> act) {
        waiting = {std::move(act)};
        MSG quit; // of a window that an earlier test closed: no dialog would stay open
        while (PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) {
        }
        timer_ = SetTimer(nullptr, 0, USER_TIMER_MINIMUM, Look);
        CHECK(timer_ != 0);
    }
    ~WhileOpen() {
        KillTimer(nullptr, timer_);
        CHECK_FALSE(waiting); // it was seen
        waiting = nullptr;
    }
    WhileOpen(const WhileOpen&) = delete;
    WhileOpen& operator=(const WhileOpen&) = delete;

  private:
    static BOOL CALLBACK TakeDialog(HWND window, LPARAM found) {
        wchar_t name[16] = {};
        GetClassNameW(window, name, 16);
        if (std::wstring(name) != L"#32770" || !IsWindowVisible(window) ||
            !IsWindowEnabled(window)) // waits for another
            return TRUE;
        *reinterpret_cast<HWND*>(found) = window;
        return FALSE;
    }
    static void CALLBACK Look(HWND, UINT, UINT_PTR, DWORD) {
        HWND dialog = nullptr;
        EnumThreadWindows(GetCurrentThreadId(), TakeDialog, reinterpret_cast<LPARAM>(&dialog));
        if (dialog && waiting) std::exchange(waiting, nullptr)(dialog);
    }

    inline static std::function<void(HWND)> waiting; // a timer is told nothing but its number
    UINT_PTR timer_;
};

inline std::wstring TextOf(HWND dialog, int control) {
    return WindowText(GetDlgItem(dialog, control));
}

inline void PressButton(HWND dialog, int button) {
    PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(button),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, button)));
}

// A key, as from the keyboard, to whatever has the focus.
inline void PressKey(WPARAM key) {
    const HWND focus = GetFocus();
    PostMessageW(focus, WM_KEYDOWN, key, 1);
    PostMessageW(focus, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
}

// How far the middles of two rectangles are from each other, in pixels.
inline int DistanceOfMiddles(const RECT& first, const RECT& second) {
    const auto apart = [](LONG one, LONG other) { return one > other ? one - other : other - one; };
    return static_cast<int>(apart(first.left + first.right, second.left + second.right) +
                            apart(first.top + first.bottom, second.top + second.bottom)) /
           2;
}

// A window that owns dialogs, at this place. Without a caption, since a window manager moves one
// that has it when it likes, also when a dialog has been placed over it.
class OwnerWindow {
  public:
    explicit OwnerWindow(const RECT& place)
        : window_(CreateWindowExW(0, L"STATIC", L"Owner", WS_POPUP | WS_VISIBLE, place.left,
                                  place.top, place.right - place.left, place.bottom - place.top,
                                  nullptr, nullptr, nullptr, nullptr)) {
        REQUIRE(window_);
    }
    ~OwnerWindow() { DestroyWindow(window_); }
    OwnerWindow(const OwnerWindow&) = delete;
    OwnerWindow& operator=(const OwnerWindow&) = delete;
    HWND Get() const { return window_; }
    // From the middle of a dialog to its own.
    int DistanceTo(HWND dialog) const {
        RECT own = {}, other = {};
        GetWindowRect(window_, &own);
        GetWindowRect(dialog, &other);
        return DistanceOfMiddles(own, other);
    }

  private:
    HWND window_;
};
