#include "platform/windows/window/foreground.h"

bool IsMenuOpen() {
    GUITHREADINFO thread = {};
    thread.cbSize = sizeof thread;
    return GetGUIThreadInfo(GetCurrentThreadId(), &thread) && (thread.flags & GUI_INMENUMODE);
}

void BringToForeground(HWND window) {
    if (IsMenuOpen()) EndMenu();
    if (IsIconic(window)) ShowWindow(window, SW_RESTORE);
    SetForegroundWindow(GetLastActivePopup(window));
}
