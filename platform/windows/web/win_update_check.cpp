#include "platform/windows/web/win_update_check.h"

#include "platform/windows/base/text.h"
#include "platform/windows/web/web_request.h"
#include "platform/windows/window/win_timer.h"

namespace {
constexpr int maxRedirections = 5;
} // namespace

FetchAnswer WinUpdateCheck::Fetch(const std::u16string& address) {
    std::optional<WebTarget> target = ParseWebTarget(ToWide(address));
    const WinHttp* http = target ? LoadWinHttp() : nullptr;
    bool late = false;
    WinTimer timer(nullptr);
    timer.Start(timeLimit_, [&late] { late = true; });
    for (int i = 0; http && target && i <= maxRedirections; ++i) {
        const WebRequest request(*http, *target, timeLimit_);
        if (!HandleMessagesUntil([&] { return request.IsFinished() || late; }))
            return {FetchStatus::Abandoned, {}};
        if (late) return {};
        if (request.IsComplete()) return {FetchStatus::Ok, request.Bytes()};
        target = RedirectedTarget(*target, request.Location());
    }
    return {};
}

// False on WM_QUIT, which is posted again for the program's own loop.
bool WinUpdateCheck::HandleMessagesUntil(const std::function<bool()>& condition) const {
    MSG message;
    while (!condition()) {
        if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return false;
        }
        if (preTranslate_ && preTranslate_(message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return true;
}
