// The parts of the help window that is open in this thread.
#pragma once

#include "platform/windows/base/text.h"
#include "platform/windows/base/win32.h"

#include <richedit.h>

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
        return FindWindowExW(panel, nullptr, MSFTEDIT_CLASS, nullptr);
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
    static std::u16string Selected() {
        wchar_t text[64] = {};
        SendMessageW(Page(), EM_GETSELTEXT, 0, reinterpret_cast<LPARAM>(text));
        return FromWide(text);
    }
};
