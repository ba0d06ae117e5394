// The port of the menu bar, and the menu model that it mirrors.
#pragma once

#include <deque>
#include <functional>
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
    bool standard = false; // the default item of its menu: bold
    bool heading = false;  // bold and inert
    bool radio = false;    // its check mark is a bullet
    bool literal = false;  // a text of the user's: an "&" or a "-" in it means just that
    int helpContextId = 0;

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

struct MenuEvents {
    std::function<void(MenuArray&)> onOpening;          // just before a top-level menu is shown
    std::function<void(MenuArray&, int index)> onClick; // an enabled item was chosen
};

class MenuBar {
  public:
    virtual ~MenuBar() = default;

    // Shows the top-level menus of the model, which outlives this object. The back end reads the
    // items anew each time a menu opens; `Refresh` is for a change of the top level itself.
    virtual void Attach(const std::vector<MenuArray*>& topLevel, MenuEvents) = 0;
    virtual void Refresh() = 0;
    // Opens a top-level menu at its title, as a click there does. It comes back at once; the menu
    // opens when the event being handled is done with. Left without a choice, it gives the keyboard
    // back to the view that had it: nobody has gone to the bar.
    virtual void ShowMenu(MenuArray& topLevel) = 0;
    // Shows these items as a context menu at the pointer (or the caret), and comes back at once.
    virtual void ShowContextMenu(const std::vector<MenuArray*>& items) = 0;
};
