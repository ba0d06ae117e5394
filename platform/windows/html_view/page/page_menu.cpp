#include "platform/windows/html_view/page/page_menu.h"

#include <mshtmcid.h>

namespace {
struct NumberedCommand {
    PageCommand command;
    int number;
};

constexpr NumberedCommand numberedCommands[] = {
    {PageCommand::Copy, IDM_COPY},   {PageCommand::SelectAll, IDM_SELECTALL},
    {PageCommand::Print, IDM_PRINT}, {PageCommand::Find, IDM_FIND},
    {PageCommand::Open, IDM_OPEN},
};
} // namespace

std::optional<PageCommand> PageCommandOf(int number) {
    for (const NumberedCommand& each : numberedCommands)
        if (each.number == number) return each.command;
    return std::nullopt;
}

int NumberOf(PageCommand command) {
    for (const NumberedCommand& each : numberedCommands)
        if (each.command == command) return each.number;
    return 0;
}

std::optional<PageCommand> AskPageCommand(HWND owner, POINT place, bool hasText,
                                          bool hasSelection) {
    const HMENU menu = CreatePopupMenu();
    const auto add = [menu](PageCommand command, const wchar_t* caption, bool enabled) {
        AppendMenuW(menu, enabled ? MF_STRING : MF_STRING | MF_GRAYED,
                    static_cast<UINT_PTR>(NumberOf(command)), caption);
    };
    add(PageCommand::Copy, L"&Copy", hasSelection);
    add(PageCommand::SelectAll, L"Select &All", hasText);
    add(PageCommand::Find, L"&Find...", hasText);
    AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    add(PageCommand::Open, L"&Open...", true);
    add(PageCommand::Print, L"&Print...", hasText);
    const int chosen =
        TrackPopupMenu(menu, TPM_RETURNCMD | TPM_RIGHTBUTTON, place.x, place.y, 0, owner, nullptr);
    DestroyMenu(menu);
    return PageCommandOf(chosen);
}
