// Waiting for a condition while the program's messages are handled.
#pragma once

#include "platform/windows/window/win_window.h"

#include <functional>

// Whether it holds within five seconds. `window` sees the messages first, as in the program's loop.
inline bool Becomes(const std::function<bool()>& condition, WinWindow* window = nullptr) {
    const ULONGLONG end = GetTickCount64() + 5000;
    while (!condition() && GetTickCount64() < end) {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (message.message == WM_QUIT || (window && window->PreTranslateMessage(message)))
                continue;
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
    }
    return condition();
}
