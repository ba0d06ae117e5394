// Native menus that mirror the model: which menu shows which items.
#pragma once

#include "platform/menu_bar.h"
#include "platform/windows/base/win32.h"

#include <string>
#include <unordered_map>
#include <vector>

// An item of the model.
struct MenuItemRef {
    MenuArray* array = nullptr;
    int index = 0;

    const MenuItem& Item() const { return (*array)[static_cast<std::size_t>(index)]; }
};

std::wstring NativeCaption(const MenuItem&);
wchar_t AccessKey(const MenuItem&); // in upper case, 0 for none

// Menus are identified by their handles and items by their positions, because command ids end at
// 65,535.
class WinModelMenus {
  public:
    HMENU AddMenu(const std::vector<MenuArray*>& items); // without native items, until `Fill`
    void Fill(HMENU);                                    // rebuilds the native items from the model
    void Remove(HMENU);                                  // destroys the menu and its submenus

    bool Has(HMENU menu) const { return menus_.contains(menu); }
    // Without an array when there is no such item (any more).
    MenuItemRef ItemAt(HMENU, std::size_t position) const;

  private:
    struct Menu {
        std::vector<MenuArray*> arrays;
        std::vector<MenuItemRef> items; // in the order of the native items
    };
    void Clear(HMENU, Menu&);
    void AddItem(HMENU, MenuItemRef, HMENU submenu);

    std::unordered_map<HMENU, Menu> menus_;
};
