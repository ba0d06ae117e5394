// The parts of the help window that is open in this thread.
#pragma once

#include "platform/windows/base/text.h"
#include "platform/windows/text_pane/text_window.h"

struct ShownHelp {
    // Null while none is open.
    static HWND Frame() {
        HWND help = nullptr;
        const auto look = [](HWND window, LPARAM found) -> BOOL {
            wchar_t name[32] = {};
            GetClassNameW(window, name, 32);
            if (std::wstring(name) != L"NorvasetHelp" || !IsWindowVisible(window)) return TRUE;
            *reinterpret_cast<HWND*>(found) = window;
            return FALSE;
        };
        EnumThreadWindows(GetCurrentThreadId(), look, reinterpret_cast<LPARAM>(&help));
        return help;
    }
    static HWND Search() { return FindWindowExW(Frame(), nullptr, L"EDIT", nullptr); }
    static HWND List() { return FindWindowExW(Frame(), nullptr, L"LISTBOX", nullptr); }
    static HWND Page() {
        const HWND panel = FindWindowExW(Frame(), nullptr, L"NorvasetHelpPage", nullptr);
        return FindWindowExW(panel, nullptr, L"NorvasetText", nullptr);
    }

    static int RowCount() { return static_cast<int>(SendMessageW(List(), LB_GETCOUNT, 0, 0)); }
    static int Row() { return static_cast<int>(SendMessageW(List(), LB_GETCURSEL, 0, 0)); }
    // As a click on it does.
    static void ChooseRow(int row) {
        SendMessageW(List(), LB_SETCURSEL, static_cast<WPARAM>(row), 0);
        SendMessageW(Frame(), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(List()), LBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(List()));
    }
    static void Type(const std::u16string& text) { SetWindowTextW(Search(), ToWide(text).c_str()); }
    static TextPane& Pane() { return TextWindow::Of(Page())->Pane(); }
    static std::u16string Text() { return Pane().Source().Range(0, Pane().Source().Length()); }
    static std::u16string Selected() {
        return Pane().Source().Range(Pane().SelStart(), Pane().SelEnd());
    }
};
