#include "platform/windows/text_view/text_keys.h"

#include <richedit.h>

namespace {
bool IsDown(int key) {
    return GetKeyState(key) < 0;
}

bool MovesCaret(int key) {
    return key >= VK_PRIOR && key <= VK_DOWN;
}

// With Ctrl the control would align, space, number and change the case of paragraphs, and copy in
// formats of its own.
bool IsHandledByControl(int key, bool control) {
    return key == 'A' ? control && !IsDown(VK_SHIFT) : MovesCaret(key);
}

// The control may keep account of these by itself.
bool IsModifier(int key) {
    return key == VK_SHIFT || key == VK_CONTROL || key == VK_MENU;
}

CHARRANGE Selection(HWND control) {
    CHARRANGE range = {};
    SendMessageW(control, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
    return range;
}

// Where the caret cannot go further the control would beep.
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
    if (IsDown(VK_MENU)) // with Ctrl a keyboard types; else undo, and a character by its code
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
