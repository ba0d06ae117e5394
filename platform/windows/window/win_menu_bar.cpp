#include "platform/windows/window/win_menu_bar.h"

#include "platform/windows/base/handler.h"
#include "platform/windows/window/window_messages.h"

#include <commctrl.h>

#include <algorithm>

namespace {

// Makes a choice known by menu and position instead of a number.
void NotifyByPosition(HMENU menu) {
    MENUINFO info = {};
    info.cbSize = sizeof info;
    info.fMask = MIM_STYLE;
    info.dwStyle = MNS_NOTIFYBYPOS;
    SetMenuInfo(menu, &info);
}

// No second menu, and none over a dialog.
bool CanOpenMenu(HWND frame) {
    GUITHREADINFO thread = {};
    thread.cbSize = sizeof thread;
    GetGUIThreadInfo(GetCurrentThreadId(), &thread);
    return IsWindowEnabled(frame) && !(thread.flags & GUI_INMENUMODE);
}

// A menu that a shortcut with Ctrl has opened takes no key for one with Ctrl.
void ForgetHeldCtrl() {
    BYTE keys[256];
    if (!GetKeyboardState(keys)) return;
    for (const int key : {VK_CONTROL, VK_LCONTROL, VK_RCONTROL})
        keys[key] = static_cast<BYTE>(keys[key] & 0x7F);
    SetKeyboardState(keys);
}

} // namespace

WinMenuBar::WinMenuBar(HWND frame, std::function<POINT()> contextPoint)
    : frame_(frame), contextPoint_(std::move(contextPoint)) {
    SetWindowSubclass(frame_, Receive, 0, reinterpret_cast<DWORD_PTR>(this));
}

WinMenuBar::~WinMenuBar() {
    if (IsWindow(frame_)) RemoveWindowSubclass(frame_, Receive, 0);
    menus_.Remove(contextMenu_);
}

void WinMenuBar::Attach(const std::vector<MenuArray*>& topLevel, MenuEvents events) {
    events_ = std::move(events);
    const HMENU previous = bar_;
    bar_ = CreateMenu();
    NotifyByPosition(bar_);
    for (const Title& title : std::exchange(titles_, {})) {
        RemoveMenu(previous, 0, MF_BYPOSITION);
        menus_.Remove(title.menu);
    }
    for (MenuArray* array : topLevel)
        titles_.push_back({array, menus_.AddMenu(array->children), {}});
    Refresh();
    SetMenu(frame_, bar_);
    if (previous) DestroyMenu(previous);
}

void WinMenuBar::Refresh() {
    UINT position = 0;
    bool changed = false;
    for (Title& title : titles_) {
        changed |= UpdateTitle(title, position);
        position += title.visible ? 1 : 0;
    }
    if (changed) DrawMenuBar(frame_);
}

// Whether anything has changed.
bool WinMenuBar::UpdateTitle(Title& title, UINT position) {
    const MenuItem& item = (*title.array)[0];
    const bool wasVisible = std::exchange(title.visible, item.visible);
    if (!item.visible) return wasVisible && RemoveMenu(bar_, position, MF_BYPOSITION);
    if (wasVisible && title.caption == item.caption && title.enabled == item.enabled) return false;
    title.caption = item.caption;
    title.enabled = item.enabled;

    std::wstring caption = NativeCaption(item);
    MENUITEMINFOW info = {};
    info.cbSize = sizeof info;
    info.fMask = MIIM_STRING | MIIM_STATE | MIIM_SUBMENU;
    info.fState = item.enabled ? MFS_ENABLED : MFS_GRAYED;
    info.hSubMenu = title.menu;
    info.dwTypeData = caption.data();
    return wasVisible ? SetMenuItemInfoW(bar_, position, TRUE, &info)
                      : InsertMenuItemW(bar_, position, TRUE, &info);
}

// The menu opens when its message comes round: its own opening is an event for the form.
void WinMenuBar::ShowMenu(MenuArray& topLevel) {
    PostMessageW(frame_, OpenMenuMessage, 0, reinterpret_cast<LPARAM>(&topLevel));
}

void WinMenuBar::ShowContextMenu(const std::vector<MenuArray*>& items) {
    if (!CanOpenMenu(frame_)) return;
    menus_.Remove(contextMenu_);
    contextMenu_ = menus_.AddMenu(items);
    contextAt_ = contextPoint_();
    NotifyByPosition(contextMenu_);
    PostMessageW(frame_, OpenContextMenuMessage, 0, 0);
}

// By its access key, which every top-level menu has: so its neighbours can be reached from it.
void WinMenuBar::OpenMenu(const MenuArray* topLevel) {
    const auto title = std::ranges::find(titles_, topLevel, &Title::array);
    if (title == titles_.end() || !title->visible || !title->enabled || !CanOpenMenu(frame_))
        return;
    ForgetHeldCtrl();
    popups_ = 0;
    SendMessageW(frame_, WM_SYSCOMMAND, SC_KEYMENU, AccessKey((*title->array)[0]));
    popups_.reset();
}

// The menu beside this one opens before the message comes round.
void WinMenuBar::CountPopup(int change) {
    if (!popups_) return;
    *popups_ += change;
    if (change < 0) PostMessageW(frame_, PopupClosedMessage, 0, 0);
}

// By itself the bar would keep the keyboard when its menu has been left by Escape.
void WinMenuBar::LeaveEmptyBar() const {
    if (popups_ && *popups_ <= 0) EndMenu();
}

void WinMenuBar::OpenContextMenu() {
    if (!CanOpenMenu(frame_)) return;
    menus_.Fill(contextMenu_);
    const UINT side = GetSystemMetrics(SM_MENUDROPALIGNMENT) ? TPM_RIGHTALIGN : TPM_LEFTALIGN;
    TrackPopupMenuEx(contextMenu_, side | TPM_RIGHTBUTTON, contextAt_.x, contextAt_.y, frame_,
                     nullptr);
}

LRESULT CALLBACK WinMenuBar::Receive(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                     UINT_PTR id, DWORD_PTR self) noexcept {
    auto& menuBar = *reinterpret_cast<WinMenuBar*>(self);
    LRESULT answer = 0;
    if (message == WM_NCDESTROY) RemoveWindowSubclass(window, Receive, id);
    if (menuBar.Take(message, wParam, lParam, answer)) return answer;
    return DefSubclassProc(window, message, wParam, lParam);
}

bool WinMenuBar::Take(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& answer) {
    switch (message) {
    case WM_INITMENUPOPUP:
        CountPopup(1);
        Prepare(reinterpret_cast<HMENU>(wParam));
        return false;
    case WM_UNINITMENUPOPUP: CountPopup(-1); return false;
    case PopupClosedMessage: LeaveEmptyBar(); return true;
    case WM_MENUCOMMAND: Choose(reinterpret_cast<HMENU>(lParam), wParam); return true;
    case WM_MENUCHAR: return ChooseByKey(LOWORD(wParam), reinterpret_cast<HMENU>(lParam), answer);
    case OpenMenuMessage: OpenMenu(reinterpret_cast<const MenuArray*>(lParam)); return true;
    case OpenContextMenuMessage: OpenContextMenu(); return true;
    default: return false;
    }
}

void WinMenuBar::Prepare(HMENU menu) {
    if (!menus_.Has(menu) || menu == contextMenu_) return;
    const auto title = std::ranges::find(titles_, menu, &Title::menu);
    if (title != titles_.end()) CallHandler(events_.onOpening, *title->array);
    menus_.Fill(menu);
}

// The model may have changed since the menu was opened.
void WinMenuBar::Choose(HMENU menu, std::size_t position) {
    const MenuPlace place = menus_.PlaceAt(menu, position);
    if (!place.array) return;
    const MenuItem& item = (*place.array)[static_cast<std::size_t>(place.index)];
    if (item.enabled && !item.heading) CallHandler(events_.onClick, *place.array, place.index);
}

// The key of an access letter chooses in a layout without Latin letters too.
bool WinMenuBar::ChooseByKey(wchar_t character, HMENU menu, LRESULT& answer) const {
    const int key = LOBYTE(VkKeyScanW(character));
    const int count = GetMenuItemCount(menu);
    for (int position = 0; position < count; ++position) {
        const MenuPlace place = PlaceAt(menu, static_cast<std::size_t>(position));
        if (!place.array) continue;
        if (AccessKey((*place.array)[static_cast<std::size_t>(place.index)]) != key) continue;
        answer = MAKELRESULT(position, MNC_EXECUTE);
        return true;
    }
    return false;
}

MenuPlace WinMenuBar::PlaceAt(HMENU menu, std::size_t position) const {
    if (menu != bar_) return menus_.PlaceAt(menu, position);
    for (const Title& title : titles_)
        if (title.visible && position-- == 0) return {title.array, 0};
    return {};
}
