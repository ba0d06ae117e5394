// The menu bar on Windows: native menus made from the model each time one opens.
#pragma once

#include "platform/menu_bar.h"
#include "platform/windows/window/model_menu.h"

#include <optional>

class WinMenuBar final : public MenuBar {
  public:
    // `contextPoint` tells where on the screen a context menu was asked for.
    WinMenuBar(HWND frame, std::function<POINT()> contextPoint);
    ~WinMenuBar() override;

    void Attach(const std::vector<MenuArray*>& topLevel, MenuEvents) override;
    void Refresh() override;
    void ShowMenu(MenuArray& topLevel) override;
    void ShowContextMenu(const std::vector<MenuArray*>& items) override;

  private:
    // One top-level menu of the model and what stands for it in the native bar.
    struct Title {
        MenuArray* array;
        HMENU menu;
        std::u16string caption;
        bool enabled = false, visible = false;
    };

    static LRESULT CALLBACK Receive(HWND, UINT, WPARAM, LPARAM, UINT_PTR, DWORD_PTR) noexcept;
    bool Take(UINT message, WPARAM, LPARAM, LRESULT& answer);
    bool UpdateTitle(Title&, UINT position);
    void Prepare(HMENU);
    void Choose(HMENU, std::size_t position);
    bool ChooseByKey(wchar_t character, HMENU, LRESULT& answer) const;
    void OpenMenu(const MenuArray*);
    void CountPopup(int change);
    void LeaveEmptyBar() const;
    void OpenContextMenu();
    MenuPlace PlaceAt(HMENU, std::size_t position) const;

    HWND frame_;
    std::function<POINT()> contextPoint_;
    HMENU bar_ = nullptr; // the window's, which destroys it
    WinModelMenus menus_;
    std::vector<Title> titles_;
    MenuEvents events_;
    // While a menu is open that the program opened itself: how many are, the system's too.
    std::optional<int> popups_;
    HMENU contextMenu_ = nullptr; // the one asked for last; what was chosen in it is told later
    POINT contextAt_ = {};
};
