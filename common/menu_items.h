// Menu items at run time: adding, captions with a note after a tab, radio groups.
#pragma once

#include "common/menu_model.h"

#include <string>
#include <string_view>

struct MenuItemOptions {
    std::u16string_view shortcut{}; // "keycode.shift"; its text comes after the caption
    std::u16string_view tag{};
    int helpContextId = 0; // 0: none
    bool checked = false, visible = true;
};

// Appends an element to the array. It is literal when the array's first item is.
MenuItem& AddMenuItem(MenuArray&, std::u16string_view caption = {}, const MenuItemOptions& = {});

// The caption up to its first tab.
std::u16string_view BaseCaption(const MenuItem&);

// Puts `text` after the caption's tab in place of what stands there; "" takes tab and text away.
void SetMenuShortcutText(MenuItem&, std::u16string_view text);

// Checks the item with a bullet and unchecks all others of the group.
void CheckRadioItem(int index, MenuArray&);

// The index of the checked item, 0 when there is none.
int CheckedItem(const MenuArray&);

// A caption up to its tab without its access-key marks: the title of the dialogs of colours, fonts
// and new profiles.
std::u16string PlainCaption(const MenuItem&);

// And without its dots: the title of all other dialogs of a menu item.
std::u16string DialogTitle(const MenuItem&);
