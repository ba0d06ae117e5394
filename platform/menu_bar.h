// The port of the menu bar, which mirrors the menu model.
#pragma once

#include "common/menu_model.h"

#include <functional>
#include <vector>

struct MenuEvents {
    std::function<void(MenuArray&)> onOpening;          // just before a top-level menu is shown
    std::function<void(MenuArray&, int index)> onClick; // an enabled item was chosen
};

class MenuBar {
  public:
    virtual ~MenuBar() = default;

    // Shows the top-level menus of the model, which outlives this object. The back end reads the
    // items again each time a menu opens; `Refresh` is for a change of the top level itself.
    virtual void Attach(const std::vector<MenuArray*>& topLevel, MenuEvents) = 0;
    virtual void Refresh() = 0;
    // Opens a top-level menu at its title, as a click there does. It comes back at once; the menu
    // opens when the event being handled is done with. Left without a choice, it gives the keyboard
    // back to the view that had it: the user has not gone to the bar.
    virtual void ShowMenu(MenuArray& topLevel) = 0;
    // Shows these items as a context menu at the pointer (or the caret), and comes back at once.
    virtual void ShowContextMenu(const std::vector<MenuArray*>& items) = 0;
};
