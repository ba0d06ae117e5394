// The control's windows, one in the other, under the names that the system's control has.
#define CINTERFACE
#include "tests/contract/stand_in/stand_in_browser.h"

namespace {

LRESULT CALLBACK Remember(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* world = reinterpret_cast<StandIn*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    const bool isUsers = message == WM_COMMAND || message == WM_APPCOMMAND ||
                         (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST);
    if (world && isUsers && message != WM_MOUSEMOVE)
        world->messages.push_back({message, wParam, lParam});
    return DefWindowProcW(window, message, wParam, lParam);
}

HWND MakeWindow(const wchar_t* name, HWND parent) {
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = Remember;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = name;
    RegisterClassW(&windowClass);
    return CreateWindowW(name, L"", WS_CHILD | WS_VISIBLE, 0, 0, 10, 10, parent, nullptr,
                         windowClass.hInstance, nullptr);
}

} // namespace

void StandInBrowser::MakeWindows(HWND parent) {
    outer = MakeWindow(L"Shell Embedding", parent);
    inner = MakeWindow(L"Internet Explorer_Server", MakeWindow(L"Shell DocObject View", outer));
    SetWindowLongPtrW(inner, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&World()));
}
