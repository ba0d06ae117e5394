#include "platform/windows/html_view/page/page_menu.h"

#include <mshtmcid.h>

namespace {
struct CommandEntry {
    PageCommand command;
    int number;
};

constexpr CommandEntry commandEntries[] = {
    {PageCommand::Copy, IDM_COPY},   {PageCommand::SelectAll, IDM_SELECTALL},
    {PageCommand::Print, IDM_PRINT}, {PageCommand::Find, IDM_FIND},
    {PageCommand::Open, IDM_OPEN},
};

constexpr int changeEngineId = 0x7FFF; // none of the engine's
} // namespace

std::optional<PageCommand> ToPageCommand(int number) {
    for (const CommandEntry& each : commandEntries)
        if (each.number == number) return each.command;
    return std::nullopt;
}

int CommandId(PageCommand command) {
    for (const CommandEntry& each : commandEntries)
        if (each.command == command) return each.number;
    return 0;
}

std::optional<PageCommand> TrackPageMenu(HWND owner, POINT place, const PageMenu& items) {
    const HMENU menu = CreatePopupMenu();
    const auto add = [menu](PageCommand command, const wchar_t* caption, bool enabled) {
        AppendMenuW(menu, enabled ? MF_STRING : MF_STRING | MF_GRAYED,
                    static_cast<UINT_PTR>(CommandId(command)), caption);
    };
    add(PageCommand::Copy, L"&Copy", items.hasSelection);
    add(PageCommand::SelectAll, L"Select &All", items.hasText);
    add(PageCommand::Find, L"&Find...", items.hasText);
    AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    add(PageCommand::Open, L"&Open...", true);
    add(PageCommand::Print, L"&Print...", items.hasText);
    if (items.engine) {
        AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
        const UINT checked = *items.engine == PageEngine::Browser ? MF_CHECKED : MF_UNCHECKED;
        AppendMenuW(menu, MF_STRING | checked, changeEngineId, L"&Browser View\tCtrl+Shift+B");
    }
    const int chosen =
        TrackPopupMenu(menu, TPM_RETURNCMD | TPM_RIGHTBUTTON, place.x, place.y, 0, owner, nullptr);
    DestroyMenu(menu);
    return chosen == changeEngineId ? PageCommand::ChangeEngine : ToPageCommand(chosen);
}
