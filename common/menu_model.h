// The menus as the program has them: items that hold captions, states and what is stored with them.
#pragma once

#include <deque>
#include <string>
#include <vector>

// One element of a menu. Its caption's access key is marked with "&"; what follows a tab stands at
// the right.
struct MenuItem {
    std::u16string caption;
    std::u16string tag; // storage of the program's own, never shown
    bool enabled = true;
    bool checked = false;
    bool visible = true;
    bool isDefault = false; // of its menu: bold
    bool heading = false;   // bold and inert
    bool radio = false;     // its check mark is a bullet
    bool literal = false;   // a text of the user's: an "&" or a "-" in it means just that
    int helpContextId = 0;
    // In place of the caption, with controls of direction; "" where it needs none.
    std::u16string shown = {};

    const std::u16string& ShownCaption() const { return shown.empty() ? caption : shown; }
    bool IsSeparator() const { return caption == u"-" && !literal; }
};

// A named place in the tree: one item, or an array of items that grows and shrinks, or a submenu
// (one item that opens `children`).
struct MenuArray {
    std::string name;
    std::deque<MenuItem> items;
    std::vector<MenuArray*> children; // in order; owned by the form

    MenuItem& operator[](std::size_t index) { return items[index]; }
    const MenuItem& operator[](std::size_t index) const { return items[index]; }
    int Count() const { return static_cast<int>(items.size()); }
};
