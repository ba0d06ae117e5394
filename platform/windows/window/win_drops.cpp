#include "platform/windows/window/win_drops.h"

#include "platform/shared/call_handler.h"
#include "platform/windows/base/text.h"
#include "platform/windows/files/shortcut.h"
#include "platform/windows/window/foreground.h"

#include <shlwapi.h>

namespace {

constexpr UINT dropMessage = WM_APP;

} // namespace

WinDrops::WinDrops(const Handler& handler)
    : handler_(handler), window_({L"NorvasetDrops", 0, 0, HWND_MESSAGE},
                                 [this](HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
                                     if (message == dropMessage) HandleNext();
                                     return DefWindowProcW(window, message, wParam, lParam);
                                 }) {}

void WinDrops::Add(HWND target, std::vector<std::u16string> paths) {
    if (paths.empty()) return;
    pending_.push_back({GetAncestor(target, GA_ROOT), std::move(paths)});
    PostMessageW(window_.Handle(), dropMessage, 0, 0);
}

void WinDrops::HandleNext() {
    if (pending_.empty()) return;
    const Drop drop = std::move(pending_.front());
    pending_.pop_front();
    BringToForeground(drop.window);
    CallHandler(handler_, drop.paths);
}

std::vector<std::u16string> DroppedFiles(HDROP drop) {
    std::vector<std::u16string> paths;
    const UINT count = DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0);
    for (UINT i = 0; i < count; ++i) {
        std::wstring path(DragQueryFileW(drop, i, nullptr, 0), L'\0');
        DragQueryFileW(drop, i, path.data(), static_cast<UINT>(path.size()) + 1);
        // Under Wine a drop of web addresses alone has one name: whatever the memory held.
        if (!PathIsRelativeW(path.c_str())) paths.push_back(FollowShortcut(FromWide(path)));
    }
    return paths;
}

std::vector<std::u16string> FinishDrop(HDROP drop) {
    std::vector<std::u16string> paths = DroppedFiles(drop);
    DragFinish(drop);
    return paths;
}
