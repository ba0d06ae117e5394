// Native menus that mirror the model: which menu shows which items.
#pragma once

#include "platform/menu_bar.h"
#include "platform/windows/base/win32.h"

#include <string>
#include <unordered_map>
#include <vector>

struct MenuPlace {
    MenuArray* array = nullptr;
    int index = 0;
};

std::wstring NativeCaption(const MenuItem&);
wchar_t AccessKey(const MenuItem&); // in upper case, 0 for none

// Menus are named by their native handles. A menu's items are told by their positions, because the
// numbers of native commands end at 65,535.
class WinModelMenus {
  public:
    HMENU AddMenu(const std::vector<MenuArray*>& items); // without native items, until `Fill`
    void Fill(HMENU);                                    // makes the items anew from the model
    void Remove(HMENU);                                  // destroys the menu and those inside it

    bool Has(HMENU menu) const { return menus_.contains(menu); }
    // Without an array when there is no such item, or no longer.
    MenuPlace PlaceAt(HMENU, std::size_t position) const;

  private:
    struct Menu {
        std::vector<MenuArray*> arrays;
        std::vector<MenuPlace> places; // of the native items, in order
    };
    void Clear(HMENU, Menu&);
    void AddItem(HMENU, MenuPlace, HMENU submenu);

    std::unordered_map<HMENU, Menu> menus_;
};
