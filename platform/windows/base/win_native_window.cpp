#include "platform/windows/base/win_native_window.h"

#include "platform/shared/call_handler.h"
#include "platform/windows/resources/resource.h"

namespace {

HICON ProgramIcon(int widthMetric, int heightMetric) {
    return static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_PROGRAM),
                                         IMAGE_ICON, GetSystemMetrics(widthMetric),
                                         GetSystemMetrics(heightMetric), LR_SHARED));
}

} // namespace

WinNativeWindow::WinNativeWindow(const Params& params, MessageHandler handler)
    : handler_(std::move(handler)) {
    WNDCLASSEXW windowClass = {};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = WndProc;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hIcon = ProgramIcon(SM_CXICON, SM_CYICON);
    windowClass.hIconSm = ProgramIcon(SM_CXSMICON, SM_CYSMICON);
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    windowClass.lpszClassName = params.className;
    RegisterClassExW(&windowClass); // fails, with no effect, for a class already registered
    CreateWindowExW(params.extendedStyle, params.className, L"", params.style, CW_USEDEFAULT, 0,
                    CW_USEDEFAULT, 0, params.parent, nullptr, windowClass.hInstance, this);
}

WinNativeWindow::~WinNativeWindow() {
    if (handle_) DestroyWindow(handle_);
}

LRESULT CALLBACK WinNativeWindow::WndProc(HWND window, UINT message, WPARAM wParam,
                                          LPARAM lParam) noexcept {
    if (message == WM_NCCREATE) {
        const auto& creation = *reinterpret_cast<const CREATESTRUCTW*>(lParam);
        static_cast<WinNativeWindow*>(creation.lpCreateParams)->handle_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA,
                          reinterpret_cast<LONG_PTR>(creation.lpCreateParams));
    }
    auto* self = reinterpret_cast<WinNativeWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self) return DefWindowProcW(window, message, wParam, lParam);
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        self->handle_ = nullptr;
    }
    LRESULT result = 0;
    CallGuarded([&] { result = self->handler_(window, message, wParam, lParam); });
    return result;
}
