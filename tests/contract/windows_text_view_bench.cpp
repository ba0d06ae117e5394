#include "tests/contract/windows_text_view_bench.h"

HWND HiddenWindow() {
    static const HWND window = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW, 0, 0, 1000,
                                               800, nullptr, nullptr, nullptr, nullptr);
    return window;
}

namespace {
void SetKey(int key, BYTE state) {
    BYTE keys[256] = {};
    GetKeyboardState(keys);
    keys[key] = state;
    SetKeyboardState(keys);
}
} // namespace

HeldKey::HeldKey(int key) : key_(key) {
    SetKey(key, 0x80);
}

HeldKey::~HeldKey() {
    SetKey(key_, 0);
}
