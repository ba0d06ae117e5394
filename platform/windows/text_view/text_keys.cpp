#include "platform/windows/text_view/text_keys.h"

#include <richedit.h>

namespace {
bool IsDown(int key) {
    return GetKeyState(key) < 0;
}

bool MovesCaret(int key) {
    return key >= VK_PRIOR && key <= VK_DOWN;
}

// Its other Ctrl shortcuts change alignment, spacing, numbering and case, or copy its own formats.
bool IsHandledByControl(int key, bool control) {
    return key == 'A' ? control && !IsDown(VK_SHIFT) : MovesCaret(key);
}

// Some versions track these by WM_KEYDOWN.
bool IsModifier(int key) {
    return key == VK_SHIFT || key == VK_CONTROL || key == VK_MENU;
}

CHARRANGE Selection(HWND control) {
    CHARRANGE range = {};
    SendMessageW(control, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
    return range;
}

// The control beeps when the caret cannot move further.
bool IsAtEnd(HWND control, int key) {
    const CHARRANGE selection = Selection(control);
    const bool extend = IsDown(VK_SHIFT);
    if (selection.cpMin != selection.cpMax && !extend) return false;
    GETTEXTLENGTHEX how = {};
    how.flags = GTL_NUMCHARS | GTL_PRECISE;
    how.codepage = 1200;
    const LRESULT length =
        SendMessageW(control, EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&how), 0);
    if (key == VK_LEFT || key == VK_UP) return selection.cpMax == 0;
    if (key == VK_RIGHT || key == VK_DOWN) return selection.cpMin >= length;
    return false;
}

void RequestContextMenu(HWND control) {
    SendMessageW(control, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(control), -1);
}
} // namespace

bool HandleTextKeyDown(HWND control, int key) {
    if (IsModifier(key)) return false;
    if (key == VK_F10) {
        if (!IsDown(VK_SHIFT)) return false; // the menu bar's
        RequestContextMenu(control);
        return true;
    }
    if (IsDown(VK_MENU)) // Ctrl+Alt is AltGr; Alt+Backspace is undo, Alt+X converts a code to a
                         // character
        return IsDown(VK_CONTROL) || key == VK_BACK || key == 'X';
    if (key == VK_SPACE && !IsDown(VK_CONTROL)) {
        SendMessageW(control, EM_SCROLL, IsDown(VK_SHIFT) ? SB_PAGEUP : SB_PAGEDOWN, 0);
        return true;
    }
    return !IsHandledByControl(key, IsDown(VK_CONTROL)) || IsAtEnd(control, key);
}

bool HandleTextKeyUp(HWND control, int key) {
    if (key != VK_APPS) return false;
    RequestContextMenu(control);
    return true;
}
