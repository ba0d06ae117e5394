#include "app/keys.h"

#include "app/auto_scroll.h"
#include "app/bookmark_menu.h"
#include "app/empty_view.h"
#include "app/go_to_place.h"
#include "app/links.h"
#include "app/main_form.h"
#include "app/page_engine.h"
#include "app/print_book.h"
#include "app/shown_book.h"
#include "app/view_events.h"
#include "app/view_menu.h"
#include "common/key_names.h"
#include "common/menu_items.h"

#include <algorithm>

namespace {
struct Shortcut {
    KeyCombination keys;
    MenuArray MenuTree::*menu; // its opening decides whether the command can be chosen
    MenuArray MenuTree::*command;
    MenuArray MenuTree::*enabledWith = command; // the item that says whether the key counts
};

constexpr Shortcut shortcuts[] = {
    {{'O', CtrlKey}, &MenuTree::mFile, &MenuTree::mFileOpen},
    {{'C', CtrlKey}, &MenuTree::mEdit, &MenuTree::mEditCopy},
    {{'A', CtrlKey}, &MenuTree::mEdit, &MenuTree::mEditAll},
    {{'F', CtrlKey}, &MenuTree::mEdit, &MenuTree::mEditFind},
    // Greyed in the menu while there is nothing to find yet: the key then asks for it.
    {{F3Key, 0}, &MenuTree::mEdit, &MenuTree::mEditNext, &MenuTree::mEditFind},
    {{F5Key, 0}, &MenuTree::mView, &MenuTree::mViewRefresh},
    {{'M', CtrlKey | ShiftKey}, &MenuTree::mView, &MenuTree::mViewColumn},
    {{'U', CtrlKey | ShiftKey}, &MenuTree::mView, &MenuTree::mViewUnwrap},
    {{'D', CtrlKey}, &MenuTree::mBookmark, &MenuTree::mBookmarkNew},
    {{F1Key, 0}, &MenuTree::mHelp, &MenuTree::mHelpTopics},
};

// The older key of the same command, which menus do not show.
constexpr Shortcut olderCopy = {{InsertKey, CtrlKey}, &MenuTree::mEdit, &MenuTree::mEditCopy};

void Choose(MainForm& form, const Shortcut& shortcut) {
    MenuArray& menu = form.menu.*shortcut.menu;
    const MenuHandler opening = HandlerOf(menu), click = HandlerOf(form.menu.*shortcut.command);
    if (opening && menu[0].enabled) opening(form, 0);
    if (click && menu[0].enabled && (form.menu.*shortcut.enabledWith)[0].enabled) click(form, 0);
}
} // namespace

void ShowShortcuts(MainForm& form) {
    for (const Shortcut& shortcut : shortcuts)
        SetMenuShortcutText((form.menu.*shortcut.command)[0], ShortcutText(shortcut.keys));
}

void ChooseCopy(MainForm& form) {
    Choose(form, olderCopy);
}

void Form_KeyDown(MainForm& form, int keyCode, int shift) {
    if (SteerAutoScroll(form, keyCode, shift)) return;
    const auto choose = [&](const Shortcut& shortcut) {
        if (shortcut.keys == KeyCombination{keyCode, shift}) Choose(form, shortcut);
    };
    std::ranges::for_each(shortcuts, choose);
    choose(olderCopy);
    if (keyCode == 'G' && shift == CtrlKey) GoToPlace(form);
    if (keyCode == 'P' && shift == CtrlKey) PrintBook(form);
    if (keyCode == 'B' && shift == (CtrlKey | ShiftKey)) ChangePageEngine(form);
    if (keyCode == EscapeKey && shift == 0) LeaveFullScreen(form);
    if (keyCode == EnterKey && shift == 0) OpenWelcomeBook(form);
    if (keyCode == LeftKey && shift == AltKey) GoBackAlongLinks(form);
    if (keyCode == F4Key && shift == AltKey) form.ports.window->Close();
}

void Form_KeyUp(MainForm& form, int keyCode, int shift) {
    ReleaseAutoScrollKey(form, keyCode, shift);
    const bool resizes = shift & CtrlKey && !IsPageShown(form); // a page zooms by itself
    if (resizes && (keyCode == NumPlusKey || keyCode == PlusKey)) mViewFontSize_Click(form, 0);
    if (resizes && (keyCode == NumMinusKey || keyCode == MinusKey)) mViewFontSize_Click(form, 1);
    if (shift & AltKey && keyCode == F2Key) mBookmarkLast_Click(form, 0);
    if (keyCode == F11Key && shift == 0)
        ToggleFullScreen(form); // a key held down repeats its press
}
