#include "platform/windows/window/win_timer.h"

#include "platform/shared/call_handler.h"

namespace {

constexpr UINT_PTR timerId = 1;

} // namespace

WinTimer::WinTimer(HWND owner)
    : owner_(owner), window_({L"NorvasetTimer", 0, 0, HWND_MESSAGE},
                             [this](HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
                                 if (message == WM_TIMER) Tick();
                                 return DefWindowProcW(window, message, wParam, lParam);
                             }) {}

void WinTimer::Start(int milliseconds, std::function<void()> onTick) {
    onTick_ = std::move(onTick);
    SetTimer(window_.Handle(), timerId, static_cast<UINT>(milliseconds), nullptr);
}

void WinTimer::Stop() {
    KillTimer(window_.Handle(), timerId);
    onTick_ = nullptr;
}

void WinTimer::Tick() {
    if (owner_ && IsWindow(owner_) && !IsWindowEnabled(owner_)) return;
    const std::function<void()> onTick = onTick_; // a copy: the tick may stop or restart the timer
    CallHandler(onTick);
}
