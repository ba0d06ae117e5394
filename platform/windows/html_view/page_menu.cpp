#include "platform/windows/html_view/page_menu.h"

#include "platform/html_view.h"

int AskPageCommand(HWND owner, POINT place, bool hasText, bool hasSelection) {
    const HMENU menu = CreatePopupMenu();
    const auto add = [menu](int command, const wchar_t* caption, bool enabled) {
        AppendMenuW(menu, enabled ? MF_STRING : MF_STRING | MF_GRAYED,
                    static_cast<UINT_PTR>(command), caption);
    };
    add(CopyCommand, L"&Copy", hasSelection);
    add(SelectAllCommand, L"Select &All", hasText);
    add(FindCommand, L"&Find...", hasText);
    AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    add(OpenCommand, L"&Open...", true);
    add(PrintCommand, L"&Print...", hasText);
    const int chosen =
        TrackPopupMenu(menu, TPM_RETURNCMD | TPM_RIGHTBUTTON, place.x, place.y, 0, owner, nullptr);
    DestroyMenu(menu);
    return chosen;
}
