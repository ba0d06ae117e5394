#include "platform/windows/window/win_menu_bar.h"

#include "platform/shared/call_handler.h"
#include "platform/windows/window/window_messages.h"

#include <commctrl.h>

#include <algorithm>

namespace {

// WM_MENUCOMMAND, by menu and position, instead of WM_COMMAND: command ids end at 65,535.
void NotifyByPosition(HMENU menu) {
    MENUINFO info = {};
    info.cbSize = sizeof info;
    info.fMask = MIM_STYLE;
    info.dwStyle = MNS_NOTIFYBYPOS;
    SetMenuInfo(menu, &info);
}

// Not while another menu is open or a dialog disables the frame.
bool CanOpenMenu(HWND frame) {
    GUITHREADINFO thread = {};
    thread.cbSize = sizeof thread;
    GetGUIThreadInfo(GetCurrentThreadId(), &thread);
    return IsWindowEnabled(frame) && !(thread.flags & GUI_INMENUMODE);
}

// While Ctrl counts as down, a menu opened by a shortcut with Ctrl would ignore access keys.
void ClearCtrlState() {
    BYTE keys[256];
    if (!GetKeyboardState(keys)) return;
    for (const int key : {VK_CONTROL, VK_LCONTROL, VK_RCONTROL})
        keys[key] = static_cast<BYTE>(keys[key] & 0x7F);
    SetKeyboardState(keys);
}

} // namespace

WinMenuBar::WinMenuBar(HWND frame, std::function<POINT()> contextPoint)
    : frame_(frame), contextPoint_(std::move(contextPoint)) {
    SetWindowSubclass(frame_, SubclassProc, 0, reinterpret_cast<DWORD_PTR>(this));
}

WinMenuBar::~WinMenuBar() {
    if (IsWindow(frame_)) RemoveWindowSubclass(frame_, SubclassProc, 0);
    menus_.Remove(contextMenu_);
}

void WinMenuBar::Attach(const std::vector<MenuArray*>& topLevel, MenuEvents events) {
    events_ = std::move(events);
    const HMENU previous = bar_;
    bar_ = CreateMenu();
    NotifyByPosition(bar_);
    for (const TopLevelMenu& menu : std::exchange(topLevel_, {})) {
        RemoveMenu(previous, 0, MF_BYPOSITION);
        menus_.Remove(menu.menu);
    }
    for (MenuArray* array : topLevel)
        topLevel_.push_back({array, menus_.AddMenu(array->children), {}});
    Refresh();
    SetMenu(frame_, bar_);
    if (previous) DestroyMenu(previous);
}

void WinMenuBar::Refresh() {
    UINT position = 0;
    bool changed = false;
    for (TopLevelMenu& menu : topLevel_) {
        changed |= UpdateTopLevel(menu, position);
        position += menu.visible ? 1 : 0;
    }
    if (changed) DrawMenuBar(frame_);
}

// Whether anything has changed.
bool WinMenuBar::UpdateTopLevel(TopLevelMenu& menu, UINT position) {
    const MenuItem& item = (*menu.array)[0];
    const bool wasVisible = std::exchange(menu.visible, item.visible);
    if (!item.visible) return wasVisible && RemoveMenu(bar_, position, MF_BYPOSITION);
    if (wasVisible && menu.caption == item.caption && menu.enabled == item.enabled) return false;
    menu.caption = item.caption;
    menu.enabled = item.enabled;

    std::wstring caption = NativeCaption(item);
    MENUITEMINFOW info = {};
    info.cbSize = sizeof info;
    info.fMask = MIIM_STRING | MIIM_STATE | MIIM_SUBMENU;
    info.fState = item.enabled ? MFS_ENABLED : MFS_GRAYED;
    info.hSubMenu = menu.menu;
    info.dwTypeData = caption.data();
    return wasVisible ? SetMenuItemInfoW(bar_, position, TRUE, &info)
                      : InsertMenuItemW(bar_, position, TRUE, &info);
}

// Posted: opening the menu raises an event of its own, which must not run inside the caller's.
void WinMenuBar::ShowMenu(MenuArray& topLevel) {
    PostMessageW(frame_, OpenMenuMessage, 0, reinterpret_cast<LPARAM>(&topLevel));
}

void WinMenuBar::ShowContextMenu(const std::vector<MenuArray*>& items) {
    if (!CanOpenMenu(frame_)) return;
    menus_.Remove(contextMenu_);
    contextMenu_ = menus_.AddMenu(items);
    contextMenuPoint_ = contextPoint_();
    NotifyByPosition(contextMenu_);
    PostMessageW(frame_, OpenContextMenuMessage, 0, 0);
}

// By its access key, which every top-level menu has: unlike with TrackPopupMenu, the arrow keys
// then lead to the neighbouring menus.
void WinMenuBar::OpenMenu(const MenuArray* topLevel) {
    const auto menu = std::ranges::find(topLevel_, topLevel, &TopLevelMenu::array);
    if (menu == topLevel_.end() || !menu->visible || !menu->enabled || !CanOpenMenu(frame_)) return;
    ClearCtrlState();
    openPopups_ = 0;
    SendMessageW(frame_, WM_SYSCOMMAND, SC_KEYMENU, AccessKey((*menu->array)[0]));
    openPopups_.reset();
}

// Posted: when an arrow key closes one menu, the next one opens before the message arrives.
void WinMenuBar::AddOpenPopups(int change) {
    if (!openPopups_) return;
    *openPopups_ += change;
    if (change < 0) PostMessageW(frame_, PopupClosedMessage, 0, 0);
}

// After Escape the menu bar would otherwise stay in menu mode and keep the keyboard.
void WinMenuBar::EndMenuWithoutPopup() const {
    if (openPopups_ && *openPopups_ <= 0) EndMenu();
}

void WinMenuBar::OpenContextMenu() {
    if (!CanOpenMenu(frame_)) return;
    menus_.Fill(contextMenu_);
    const UINT side = GetSystemMetrics(SM_MENUDROPALIGNMENT) ? TPM_RIGHTALIGN : TPM_LEFTALIGN;
    TrackPopupMenuEx(contextMenu_, side | TPM_RIGHTBUTTON, contextMenuPoint_.x, contextMenuPoint_.y,
                     frame_, nullptr);
}

LRESULT CALLBACK WinMenuBar::SubclassProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                          UINT_PTR id, DWORD_PTR self) noexcept {
    auto& menuBar = *reinterpret_cast<WinMenuBar*>(self);
    LRESULT result = 0;
    if (message == WM_NCDESTROY) RemoveWindowSubclass(window, SubclassProc, id);
    if (menuBar.HandleMessage(message, wParam, lParam, result)) return result;
    return DefSubclassProc(window, message, wParam, lParam);
}

bool WinMenuBar::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
    case WM_INITMENUPOPUP:
        AddOpenPopups(1);
        HandleInitMenuPopup(reinterpret_cast<HMENU>(wParam));
        return false;
    case WM_UNINITMENUPOPUP: AddOpenPopups(-1); return false;
    case PopupClosedMessage: EndMenuWithoutPopup(); return true;
    case WM_MENUCOMMAND: HandleMenuCommand(reinterpret_cast<HMENU>(lParam), wParam); return true;
    case WM_MENUCHAR:
        return HandleMenuChar(LOWORD(wParam), reinterpret_cast<HMENU>(lParam), result);
    case OpenMenuMessage: OpenMenu(reinterpret_cast<const MenuArray*>(lParam)); return true;
    case OpenContextMenuMessage: OpenContextMenu(); return true;
    default: return false;
    }
}

void WinMenuBar::HandleInitMenuPopup(HMENU menu) {
    if (!menus_.Has(menu) || menu == contextMenu_) return;
    const auto opening = std::ranges::find(topLevel_, menu, &TopLevelMenu::menu);
    if (opening != topLevel_.end()) CallHandler(events_.onOpening, *opening->array);
    menus_.Fill(menu);
}

// The model may have changed since the menu was opened.
void WinMenuBar::HandleMenuCommand(HMENU menu, std::size_t position) {
    const MenuItemRef chosen = ItemAt(menu, position);
    if (!chosen.array || !chosen.Item().enabled || chosen.Item().heading) return;
    CallHandler(events_.onClick, *chosen.array, chosen.index);
}

// A keyboard layout without Latin letters has the access key, too, but not its character.
bool WinMenuBar::HandleMenuChar(wchar_t character, HMENU menu, LRESULT& result) const {
    const int key = LOBYTE(VkKeyScanW(character));
    const int count = GetMenuItemCount(menu);
    for (int position = 0; position < count; ++position) {
        const MenuItemRef item = ItemAt(menu, static_cast<std::size_t>(position));
        if (!item.array || AccessKey(item.Item()) != key) continue;
        result = MAKELRESULT(position, MNC_EXECUTE);
        return true;
    }
    return false;
}

MenuItemRef WinMenuBar::ItemAt(HMENU menu, std::size_t position) const {
    if (menu != bar_) return menus_.ItemAt(menu, position);
    for (const TopLevelMenu& each : topLevel_)
        if (each.visible && position-- == 0) return {each.array, 0};
    return {};
}
