#include "tests/contract/windows_text_view_bench.h"

HWND HiddenWindow() {
    static const HWND window = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW, 0, 0, 1000,
                                               800, nullptr, nullptr, nullptr, nullptr);
    return window;
}
