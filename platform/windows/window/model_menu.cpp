#include "platform/windows/window/model_menu.h"

#include "platform/windows/base/text.h"
#include "platform/windows/portable/elided_text.h"
#include "platform/windows/window/dpi.h"

#include <algorithm>

namespace {

UINT TypeOf(const MenuItem& item) {
    if (item.IsSeparator()) return MFT_SEPARATOR;
    return item.radio ? MFT_RADIOCHECK : MFT_STRING;
}

UINT StateOf(const MenuItem& item) {
    if (item.heading) return MFS_DEFAULT | MF_DISABLED; // bold; disabled without being greyed
    const UINT isDefault = item.isDefault && item.enabled ? MFS_DEFAULT : 0;
    return isDefault | (item.enabled ? MFS_ENABLED : MFS_GRAYED) | (item.checked ? MFS_CHECKED : 0);
}

// At most half the screen wide; what follows a tab stays as it is.
std::u16string ShownLiteral(const std::u16string& caption) {
    // Measured only where it could be too wide: a menu may have thousands of items.
    const int maxWidth = GetSystemMetrics(SM_CXSCREEN) / 2;
    const NONCLIENTMETRICSW metrics = NonClientMetricsForDpi(SystemDpi());
    const int letter = std::max<int>(1, std::abs(metrics.lfMenuFont.lfHeight)); // an em
    if (static_cast<int>(caption.size()) * letter <= maxWidth) return caption;
    const WinFont font(CreateFontIndirectW(&metrics.lfMenuFont));
    const auto width = [&](std::u16string_view text) {
        return static_cast<int>(MeasureText(nullptr, font.get(), ToWide(text)).cx);
    };
    const std::size_t tab = std::min(caption.find(u'\t'), caption.size());
    const std::u16string after = caption.substr(tab);
    const int room = std::max(maxWidth - width(after), maxWidth / 4);
    return ElidedInMiddle(std::u16string_view(caption).substr(0, tab), room, width) + after;
}

} // namespace

std::wstring NativeCaption(const MenuItem& item) {
    if (!item.literal) return ToWide(item.ShownCaption());
    const std::u16string shown = ShownLiteral(item.ShownCaption());
    std::wstring caption;
    for (const char16_t unit : shown)
        caption.append(unit == u'&' ? 2 : 1, static_cast<wchar_t>(unit));
    return caption;
}

wchar_t AccessKey(const MenuItem& item) {
    const std::wstring caption = NativeCaption(item);
    for (std::size_t at = 0; at + 1 < caption.size(); ++at) {
        if (caption[at] != L'&') continue;
        const wchar_t next = caption[++at]; // "&&" is a literal "&"
        if (next != L'&') return LOWORD(CharUpperW(reinterpret_cast<LPWSTR>(UINT_PTR{next})));
    }
    return 0;
}

HMENU WinModelMenus::AddMenu(const std::vector<MenuArray*>& items) {
    const HMENU menu = CreatePopupMenu();
    menus_[menu].arrays = items;
    return menu;
}

void WinModelMenus::Remove(HMENU menu) {
    const auto found = menus_.find(menu);
    if (found == menus_.end()) return;
    Clear(menu, found->second);
    menus_.erase(menu);
    DestroyMenu(menu);
}

// From the end, so that positions of the remaining items do not shift.
void WinModelMenus::Clear(HMENU menu, Menu& content) {
    for (int last = GetMenuItemCount(menu) - 1; last >= 0; --last) {
        const HMENU submenu = GetSubMenu(menu, last);
        RemoveMenu(menu, static_cast<UINT>(last), MF_BYPOSITION);
        Remove(submenu);
    }
    content.items.clear();
}

void WinModelMenus::Fill(HMENU menu) {
    Clear(menu, menus_[menu]);
    const std::vector<MenuArray*> arrays = menus_[menu].arrays;
    for (MenuArray* array : arrays)
        for (int index = 0; index < array->Count(); ++index) {
            const MenuItemRef item = {array, index};
            if (!item.Item().visible) continue;
            const bool opensMenu = index == 0 && !array->children.empty();
            AddItem(menu, item, opensMenu ? AddMenu(array->children) : nullptr);
        }
}

void WinModelMenus::AddItem(HMENU menu, MenuItemRef added, HMENU submenu) {
    const MenuItem& item = added.Item();
    std::wstring caption = NativeCaption(item);
    std::vector<MenuItemRef>& items = menus_[menu].items;
    MENUITEMINFOW info = {};
    info.cbSize = sizeof info;
    info.fMask = MIIM_FTYPE | MIIM_STATE | MIIM_SUBMENU | (item.IsSeparator() ? 0 : MIIM_STRING);
    info.fType = TypeOf(item);
    info.fState = StateOf(item);
    info.hSubMenu = submenu;
    info.dwTypeData = caption.data();
    if (InsertMenuItemW(menu, static_cast<UINT>(items.size()), TRUE, &info))
        items.push_back(added);
    else
        Remove(submenu);
}

MenuItemRef WinModelMenus::ItemAt(HMENU menu, std::size_t position) const {
    const auto found = menus_.find(menu);
    if (found == menus_.end() || position >= found->second.items.size()) return {};
    const MenuItemRef item = found->second.items[position];
    return item.index < item.array->Count() ? item : MenuItemRef();
}
