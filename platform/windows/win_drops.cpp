#include "platform/windows/win_drops.h"

#include "platform/windows/win_handler.h"

namespace {

constexpr UINT dropDue = WM_APP;

} // namespace

WinDrops::WinDrops(const Tell& tell)
    : tell_(tell), window_({L"NorvasetDrops", 0, 0, HWND_MESSAGE},
                           [this](HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
                               if (message == dropDue) TellNext();
                               return DefWindowProcW(window, message, wParam, lParam);
                           }) {}

void WinDrops::Add(HWND target, std::vector<std::u16string> paths) {
    if (paths.empty()) return;
    waiting_.push_back({GetAncestor(target, GA_ROOT), std::move(paths)});
    PostMessageW(window_.Handle(), dropDue, 0, 0);
}

void WinDrops::TellNext() {
    if (waiting_.empty()) return;
    const Drop drop = std::move(waiting_.front());
    waiting_.pop_front();
    SetForegroundWindow(drop.window);
    CallHandler(tell_, drop.paths);
}
