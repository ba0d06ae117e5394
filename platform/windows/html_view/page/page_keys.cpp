#include "platform/windows/html_view/page/page_keys.h"

#include "platform/window.h"

namespace {

bool Scrolls(int keyCode) {
    return keyCode >= VK_PRIOR && keyCode <= VK_DOWN; // pages, End, Home and the arrows
}

bool MovesFocus(int keyCode) {
    return keyCode == VK_TAB || keyCode == VK_RETURN || keyCode == VK_DELETE;
}

} // namespace

PageKey ClassifyPageKey(int keyCode, int shift) {
    if (shift & AltKey) return PageKey::Other; // also Ctrl and Alt, which types on some keyboards
    if (shift & CtrlKey) {
        if (Scrolls(keyCode)) return PageKey::Scrolls;
        const int key = MainBlockKey(keyCode);
        if (key == VK_OEM_PLUS || key == VK_OEM_MINUS || key == '0') return PageKey::Zooms;
        const bool isModifier = keyCode == VK_CONTROL || keyCode == VK_SHIFT;
        return isModifier ? PageKey::Other : PageKey::Blocked;
    }
    if (keyCode >= VK_F1 && keyCode <= VK_F24) return PageKey::Blocked;
    if (keyCode >= VK_BROWSER_BACK && keyCode <= VK_BROWSER_HOME) return PageKey::Blocked;
    return Scrolls(keyCode) || MovesFocus(keyCode) ? PageKey::Scrolls : PageKey::Other;
}

int MainBlockKey(int keyCode) {
    switch (keyCode) {
    case VK_ADD: return VK_OEM_PLUS;
    case VK_SUBTRACT: return VK_OEM_MINUS;
    case VK_NUMPAD0: return '0';
    default: return keyCode;
    }
}
